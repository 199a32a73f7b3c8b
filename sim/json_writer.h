#pragma once

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <concepts>
#include <string>
#include <string_view>

namespace sim {

using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

// Providers send the same number as one or as a text.
enum class Form { number, text };

// Each of these writes one member of an object.

inline void put(JsonWriter& json, const char* key, std::string_view text) {
  json.Key(key);
  json.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

inline void put(JsonWriter& json, const char* key, std::integral auto number,
                Form form = Form::number) {
  if (form == Form::text) {
    put(json, key, std::to_string(number));
  } else {
    json.Key(key);
    json.Int64(number);
  }
}

inline void put(JsonWriter& json, const char* key, double number) {
  json.Key(key);
  json.Double(number);
}

inline void putNull(JsonWriter& json, const char* key) {
  json.Key(key);
  json.Null();
}

// What `write` writes; `size` is about what its bytes will be.
inline std::string writtenJson(const std::invocable<JsonWriter&> auto& write,
                               std::size_t size = 256) {
  rapidjson::StringBuffer buffer(nullptr, size);
  JsonWriter json(buffer);
  write(json);
  return {buffer.GetString(), buffer.GetSize()};
}

}  // namespace sim
