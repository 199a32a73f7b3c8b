#include "sim/delivery.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <mutex>

#include "sim/names.h"
#include "sim/packing.h"
#include "sim/poster.h"

namespace sim {
namespace {

using namespace std::chrono_literals;

constexpr auto redirectMark = "redirected=";
constexpr std::size_t fillerPiece = 1024 * 1024;

std::string redirectTarget(const Request& request, int hop) {
  auto target = request.target;
  const auto mark = target.find(redirectMark);
  if (mark != std::string::npos) target.resize(mark - 1);
  target += target.find('?') == std::string::npos ? '?' : '&';
  return target + redirectMark + std::to_string(hop);
}

Response redirect(const Request& request, const std::string& origin) {
  const auto hop = request.queryValue("redirected");
  int hops = 0;
  std::from_chars(hop.data(), hop.data() + hop.size(), hops);
  Response response = errorResponse(302);
  response.headers.emplace_back("Location", origin + redirectTarget(request, hops + 1));
  return response;
}

std::string randomBytes(std::size_t size) {
  std::string bytes;
  for (std::uint64_t i = 0; bytes.size() < size; ++i) {
    bytes += static_cast<char>(scatter(i, 70) >> 13);
  }
  return bytes;
}

Response compressedBomb(const char* encoding) {
  static std::mutex mutex;
  static std::map<std::string, std::shared_ptr<const std::string>> bombs;
  const std::lock_guard lock(mutex);
  auto& made = bombs[encoding];
  if (!made) made = std::make_shared<const std::string>(bomb(encoding));
  return {
      .contentType = "application/json", .body = made, .headers = {{"Content-Encoding", encoding}}};
}

Response hugeImage() {
  static const auto body = std::make_shared<const std::string>(hugePng());
  return {.contentType = "image/png", .body = body};
}

// The response that the fault puts in the proper one's place.
Response changed(const Request& request, const Response& proper, Fault fault,
                 const Origins& origins) {
  const auto sameType = [&](std::string body) {
    return textResponse(200, std::move(body), proper.contentType);
  };
  switch (fault) {
    case Fault::redirectSameOrigin:
    case Fault::redirectOversize:
    case Fault::redirectLoop:
      return redirect(request, origins.own);
    case Fault::redirectOtherPort:
      return redirect(request, origins.otherPort);
    case Fault::redirectOtherHost:
      return redirect(request, origins.otherHost);
    case Fault::redirectOtherScheme:
      return redirect(request, origins.otherScheme);
    case Fault::status401:
      return errorResponse(401);
    case Fault::status403:
      return errorResponse(403);
    case Fault::status404:
      return errorResponse(404);
    case Fault::status500:
      return errorResponse(500);
    case Fault::status503:
      return errorResponse(503);
    case Fault::html:
      return textResponse(200, "<!DOCTYPE html>\n<html><body>Please log in.</body></html>\n",
                          "text/html; charset=utf-8");
    case Fault::truncatedJson:
      return sameType(proper.body->substr(0, proper.body->size() / 2));
    case Fault::deepNesting:
      return sameType(std::string(200'000, '['));
    case Fault::garbage:
      return sameType(randomBytes(20'000));
    case Fault::empty:
      return sameType("");
    case Fault::wrongShape:
      return sameType(proper.body->starts_with('[') ? R"({"error":"try later"})" : "[[1],2]");
    case Fault::invalidUtf8:
      return sameType(
          proper.body->starts_with('[')
              ? "[{\"stream_id\":1,\"series_id\":1,\"category_id\":\"1\",\"name\":\"a\xFF\xC3(\xED"
                "\xA0\x80\\u0000z\",\"category_name\":\"\xF8\"}]"
              : "{\"user_info\":{\"auth\":1,\"status\":\"Active\",\"message\":\"\xFE\"}}");
    case Fault::oversizeGzip:
      return compressedBomb("gzip");
    case Fault::oversizeDeflate:
      return compressedBomb("deflate");
    case Fault::oversizeBrotli:
      return compressedBomb("br");
    case Fault::oversizeZstd:
      return compressedBomb("zstd");
    case Fault::hugeImage:
      return hugeImage();
    default:
      return proper;
  }
}

struct Range {
  std::size_t begin;
  std::size_t end;
};

// The one range a player asks for: "bytes=5-9", "bytes=5-" or "bytes=-9". Whole when there is none;
// empty when it lies outside.
Range requestedRange(const Request& request, std::size_t size) {
  const auto header = request.header("range");
  std::string_view text = header;
  if (!text.starts_with("bytes=") || text.find(',') != std::string_view::npos) return {0, size};
  text.remove_prefix(6);
  const auto dash = text.find('-');
  if (dash == std::string_view::npos) return {0, size};
  const auto number = [](std::string_view digits) {
    std::size_t value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
  };
  const auto last = text.substr(dash + 1);
  if (dash == 0) return {size - std::min(number(last), size), size};
  const auto begin = number(text.substr(0, dash));
  const auto end = last.empty() ? size : std::min(number(last), size - 1) + 1;
  return begin < end ? Range{begin, end} : Range{0, 0};
}

// What a response goes out through, which may break it off.
class Outlet {
 public:
  Outlet(Connection& connection, const std::optional<BreakOff>& breakOff)
      : connection_(connection), breakOff_(breakOff) {}

  // These are false when the response ends here, or the client has gone.
  bool writeHead(std::string_view head, unsigned long long bodySize) {
    if (breakOff_) left_ = bytesBefore(breakOff_->moment, head.size(), bodySize);
    return write(head);
  }
  bool write(std::string_view bytes) {
    if (!breakOff_) return connection_.write(bytes);
    const bool goesOn = bytes.size() < left_;
    const auto written = goesOn ? bytes : bytes.substr(0, left_);
    left_ -= written.size();
    if (!connection_.write(written)) return false;
    if (!goesOn && breakOff_->ending == Ending::silent) staySilent(connection_);
    return goesOn;
  }
  bool pause(std::chrono::milliseconds duration) { return connection_.pause(duration); }

 private:
  static unsigned long long bytesBefore(Moment moment, unsigned long long head,
                                        unsigned long long body) {
    switch (moment) {
      case Moment::beforeHead:
        return 0;
      case Moment::inHead:
        return head / 2;
      case Moment::inBody:
        return head + body / 2;
      case Moment::beforeLastByte:
        return head + (body > 0 ? body - 1 : 0);
    }
    return 0;
  }

  Connection& connection_;
  const std::optional<BreakOff> breakOff_;
  unsigned long long left_ = 0;
};

bool sendFiller(Outlet& outlet, const Response& response,
                std::optional<unsigned long long> announced, unsigned long long size) {
  if (!outlet.writeHead(responseHead(response, announced, false), size)) return false;
  const std::string filler(fillerPiece, ' ');
  for (unsigned long long sent = 0; sent < size; sent += filler.size()) {
    if (!outlet.write(filler)) return false;
  }
  return false;
}

bool sendSlowly(Outlet& outlet, std::string_view body) {
  const auto piece = body.size() / 16 + 1;
  for (; !body.empty(); body.remove_prefix(std::min(piece, body.size()))) {
    if (!outlet.pause(250ms) || !outlet.write(body.substr(0, piece))) return false;
  }
  return true;
}

bool send(Outlet& outlet, const Request& request, Response response, Fault fault) {
  std::string_view body = *response.body;
  if (response.status == 200) {
    response.headers.emplace_back("Accept-Ranges", "bytes");
    const auto range = requestedRange(request, body.size());
    if (range.begin == range.end && !body.empty()) {
      response = errorResponse(416);
      response.headers.emplace_back("Content-Range", "bytes */" + std::to_string(body.size()));
      body = *response.body;
    } else if (!request.header("range").empty() && !body.empty()) {
      response.status = 206;
      response.headers.emplace_back("Content-Range", "bytes " + std::to_string(range.begin) + "-" +
                                                         std::to_string(range.end - 1) + "/" +
                                                         std::to_string(body.size()));
      body = body.substr(range.begin, range.end - range.begin);
    }
  }
  const auto head = responseHead(response, body.size(), request.keepAlive);
  if (request.method == "HEAD") body = {};
  if (fault == Fault::slow) {
    return outlet.pause(1s) && outlet.writeHead(head, body.size()) && sendSlowly(outlet, body) &&
           request.keepAlive;
  }
  return outlet.writeHead(head, body.size()) && outlet.write(body) && request.keepAlive;
}

std::optional<BreakOff> breakOffOf(const Trouble& trouble) {
  if (trouble.fault == Fault::cutOff) return BreakOff{Moment::inBody, Ending::closed};
  return trouble.breakOff;
}

}  // namespace

bool deliver(Connection& connection, const Request& request, const Response& response,
             const Trouble& trouble, const Origins& origins) {
  const auto fault = trouble.fault;
  Outlet outlet(connection, breakOffOf(trouble));
  const bool followed = wasRedirected(request) && fault != Fault::redirectLoop;
  const auto sent = followed ? response : changed(request, response, fault, origins);
  switch (followed ? Fault::none : fault) {
    case Fault::silent:
      staySilent(connection);
      return false;
    case Fault::notHttp:
      connection.write(randomBytes(2000));
      return false;
    case Fault::redirectOversize:
      return sendFiller(outlet, sent, 1ULL << 35, 1ULL << 35);
    case Fault::oversizeAnnounced:
      return sendFiller(outlet, response, 1ULL << 35, 1ULL << 35);
    case Fault::oversizeUnannounced:
      return sendFiller(outlet, response, std::nullopt, 256ULL * fillerPiece);
    default:
      return send(outlet, request, sent, fault);
  }
}

void staySilent(Connection& connection) {
  while (connection.pause(1h)) continue;
}

bool wasRedirected(const Request& request) {
  return request.query.contains("redirected");
}

}  // namespace sim
