#include "sim/guide.h"

#include <openssl/evp.h>

#include <ctime>

#include "sim/json_text.h"
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

void appendProgramme(std::string& json, int channel, long long start, long long end) {
  const auto number = scatter(static_cast<std::uint64_t>(start / 60), 100 + channel);
  const bool plain = channel % 6 == 4;
  const auto title = programmeName(number);
  const auto description = plotText(number);
  json += '{';
  appendText(json, "id", std::to_string(start / 60));
  appendText(json, "epg_id", std::to_string(channel));
  appendText(json, "title", plain ? title : base64(title));
  appendText(json, "lang", "");
  appendText(json, "start", dateAndTime(start));
  appendText(json, "end", dateAndTime(end));
  appendText(json, "description", plain ? description : base64(description));
  if (number % 4 == 0) {
    appendNumber(json, "start_timestamp", start);
  } else {
    appendText(json, "start_timestamp", std::to_string(start));
  }
  appendText(json, "stop_timestamp", std::to_string(end));
  closeJson(json, '}');
  json += ',';
}

}  // namespace

std::string shortGuideJson(int channel, int limit, long long now) {
  std::string json = "{\"epg_listings\":[";
  // A slot shorter than the others makes the channels' programmes change at different times.
  constexpr long long kMinutes[] = {30, 45, 60, 20, 5};
  const long long length = kMinutes[channel % 5] * 60;
  long long start = now / length * length;
  for (int i = 0; i < limit && channel % 8 != 5; ++i, start += length) {
    appendProgramme(json, channel, start, start + length);
  }
  closeJson(json, ']');
  return json + "}";
}

}  // namespace sim
