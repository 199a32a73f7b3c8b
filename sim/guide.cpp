#include "sim/guide.h"

#include <openssl/evp.h>

#include <ctime>

#include "sim/json_writer.h"
#include "sim/names.h"

namespace sim {
namespace {

std::string base64(const std::string& text) {
  std::string encoded((text.size() + 2) / 3 * 4 + 1, '\0');
  const int size = EVP_EncodeBlock(reinterpret_cast<unsigned char*>(encoded.data()),
                                   reinterpret_cast<const unsigned char*>(text.data()),
                                   static_cast<int>(text.size()));
  encoded.resize(static_cast<std::size_t>(size));
  return encoded;
}

std::string dateAndTime(long long seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  std::tm parts{};
  gmtime_r(&time, &parts);
  char text[32];
  return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts)};
}

void writeProgramme(JsonWriter& json, int channel, long long start, long long end) {
  const auto number = scatter(static_cast<std::uint64_t>(start / 60), 100 + channel);
  const bool plain = channel % 6 == 4;
  const auto title = programmeName(number);
  const auto description = plotText(number);
  json.StartObject();
  put(json, "id", start / 60, Form::text);
  put(json, "epg_id", channel, Form::text);
  put(json, "title", plain ? title : base64(title));
  put(json, "lang", "");
  put(json, "start", dateAndTime(start));
  put(json, "end", dateAndTime(end));
  put(json, "description", plain ? description : base64(description));
  put(json, "start_timestamp", start, number % 4 == 0 ? Form::number : Form::text);
  put(json, "stop_timestamp", end, Form::text);
  json.EndObject();
}

}  // namespace

std::string shortGuideJson(int channel, int limit, long long now) {
  // A slot shorter than the others makes the channels' programmes change at different times.
  constexpr long long minutes[] = {30, 45, 60, 20, 5};
  const long long length = minutes[channel % 5] * 60;
  return writtenJson([&](JsonWriter& json) {
    json.StartObject();
    json.Key("epg_listings");
    json.StartArray();
    long long start = now / length * length;
    for (int i = 0; i < limit && channel % 8 != 5; ++i, start += length) {
      writeProgramme(json, channel, start, start + length);
    }
    json.EndArray();
    json.EndObject();
  });
}

}  // namespace sim
