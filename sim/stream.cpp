#include "sim/stream.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace sim {
namespace {

using namespace std::chrono_literals;

constexpr int broadcasts = 4;
// Time on the air before the server started, so that playlists are full at once.
constexpr auto lead = 64s;
constexpr int listedSegments = 6;
// How long a segment can still be had after it has left the list.
constexpr int spareSegments = 4;
constexpr auto picture = 1000ms / Broadcast::picturesPerSecond;

std::string_view filmType(const std::string& extension) {
  if (extension == "mkv") return "video/x-matroska";
  if (extension == "mp4") return "video/mp4";
  if (extension == "m4a") return "audio/mp4";
  return {};
}

std::shared_ptr<const std::string> readFile(const std::filesystem::path& file) {
  std::ifstream input(file, std::ios::binary);
  return std::make_shared<const std::string>(std::istreambuf_iterator<char>(input),
                                             std::istreambuf_iterator<char>());
}

}  // namespace

Streams::Streams(std::string folder)
    : folder_(std::move(folder)), began_(std::chrono::steady_clock::now() - lead) {
  for (int i = 0; i < broadcasts; ++i) {
    broadcasts_.emplace_back(folder_ + "/channel" + std::to_string(i) + ".ts");
  }
}

void Streams::sendChannel(Connection& connection, int channel, Fault fault) const {
  constexpr int second = Broadcast::picturesPerSecond;
  const Response head{.contentType = "video/mp2t"};
  if (!connection.write(responseHead(head, std::nullopt, false))) return;

  const auto first = (currentPicture() / second - 2) * second;
  const auto pace = fault == Fault::slow ? 4 * picture : picture;
  const auto reference =
      fault == Fault::slow ? std::chrono::steady_clock::now() : began_ + first * picture;
  for (auto number = first; connection.write(broadcast(channel).picture(number)); ++number) {
    if (fault == Fault::cutOff && number == first + 3 * second) return;
    const auto due = reference + (number - first) * pace;
    const auto early =
        std::chrono::ceil<std::chrono::milliseconds>(due - std::chrono::steady_clock::now());
    if (early > 0ms && !connection.pause(early)) return;
  }
}

Response Streams::playlist(const std::string& id, const std::string& base) const {
  const auto end = currentPicture() / Broadcast::picturesPerSegment;
  const auto first = end - listedSegments;
  std::string list = "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:2\n#EXT-X-MEDIA-SEQUENCE:" +
                     std::to_string(first) + "\n";
  for (auto number = first; number < end; ++number) {
    list += "#EXTINF:2.000,\n" + base + "/segment/" + id + "/" + std::to_string(number) + ".ts\n";
  }
  auto response = textResponse(200, std::move(list), "application/vnd.apple.mpegurl");
  response.headers.emplace_back("Cache-Control", "no-cache");
  return response;
}

Response Streams::segment(int channel, const std::string& file) const {
  std::int64_t number = -1;
  const auto parsed = std::from_chars(file.data(), file.data() + file.size(), number);
  const auto end = currentPicture() / Broadcast::picturesPerSegment;
  if (parsed.ec != std::errc() || std::string_view(parsed.ptr) != ".ts" || number >= end ||
      number < end - listedSegments - spareSegments) {
    return errorResponse(404);
  }
  return textResponse(200, broadcast(channel).segment(number), "video/mp2t");
}

Response Streams::film(const Provider::Item& item) {
  const auto type = filmType(item.extension);
  if (type.empty()) return errorResponse(404);
  const auto name = item.extension == "m4a"     ? std::string("audio")
                    : item.kind == Kind::series ? std::string("episode")
                                                : std::string("movie");
  const std::lock_guard lock(filesMutex_);
  auto& bytes = files_[name + "." + item.extension];
  if (!bytes) bytes = readFile(std::filesystem::path(folder_) / (name + "." + item.extension));
  return {.contentType = std::string(type), .body = bytes};
}

std::int64_t Streams::currentPicture() const {
  return (std::chrono::steady_clock::now() - began_) / picture;
}

const Broadcast& Streams::broadcast(int channel) const {
  return broadcasts_[static_cast<std::size_t>(channel) % broadcasts_.size()];
}

}  // namespace sim
