#pragma once

#include <string>
#include <string_view>

namespace sim {

// Appends a JSON string with its quotes.
inline void appendJsonText(std::string& json, std::string_view text) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  json += '"';
  for (const unsigned char byte : text) {
    if (byte == '"' || byte == '\\') {
      json += {'\\', static_cast<char>(byte)};
    } else if (byte < 0x20) {
      json += {'\\', 'u', '0', '0', kDigits[byte >> 4], kDigits[byte & 15]};
    } else {
      json += static_cast<char>(byte);
    }
  }
  json += '"';
}

// Appends `"name":"text",`.
inline void appendText(std::string& json, std::string_view name, std::string_view text) {
  json += '"';
  json += name;
  json += "\":";
  appendJsonText(json, text);
  json += ',';
}

// Appends `"name":value,`, the value being JSON already.
inline void appendRaw(std::string& json, std::string_view name, std::string_view value) {
  json += '"';
  json += name;
  json += "\":";
  json += value;
  json += ',';
}

inline void appendNumber(std::string& json, std::string_view name, long long value) {
  appendRaw(json, name, std::to_string(value));
}

// Replaces the comma after the last member or element by a closing bracket.
inline void closeJson(std::string& json, char bracket) {
  if (json.back() == ',') json.pop_back();
  json += bracket;
}

}  // namespace sim
