#pragma once

#include <QByteArray>
#include <cstdint>
#include <exception>
#include <optional>
#include <string>
#include <string_view>

#include <simdjson.h>

namespace vantor {

/// Bytes that are not the JSON they should be.
struct JSONError : std::exception {
  const char* what() const noexcept override { return "JSON error"; }
};

/// A JSON text (RFC 8259, UTF-8) open for one walk from its start to its end.
///
/// Holds a copy of the bytes only when the array's own buffer has no room for the reader's padding.
/// The walk reports damage as `JSONError`, through `simdjson::simdjson_error` turned into it by
/// `readJSON`. It sees damage only where it looks: whoever reads values hands those that it has no
/// use for to `expectValue`.
class JSONDocument {
 public:
  explicit JSONDocument(QByteArray bytes);
  /// The root's type: an object or an array.
  bool isObject() { return document_.type() == simdjson::ondemand::json_type::object; }
  simdjson::ondemand::object object() { return document_.get_object(); }
  simdjson::ondemand::array array() { return document_.get_array(); }
  /// Fails when something follows the root value.
  void expectEnd();
  /// Fails unless all of the text is JSON; instead of reading it.
  void expectWhole();

 private:
  QByteArray bytes_;
  simdjson::ondemand::parser parser_;
  simdjson::ondemand::document document_;
};

/// Runs `read`, turning the reader's own failures into `JSONError`.
template <class Read>
auto readJSON(Read read) {
  try {
    return read();
  } catch (const simdjson::simdjson_error&) {
    throw JSONError();
  }
}

/// Fails unless `value` and all that it holds are JSON, or when that is nested beyond measure.
void expectValue(simdjson::ondemand::value value);

/// Appends the text of a loosely typed value to `text`: a string as it stands, a number as decimal
/// text (an integer of any length keeps its digits), a boolean as "1" or "0", anything else
/// nothing.
void appendValueText(simdjson::ondemand::value value, std::string& text);

/// Appends the decoded text of a JSON string, unpaired surrogates as U+FFFD.
void appendString(simdjson::ondemand::value value, std::string& text);

/// The decoded text of a key; kept in `room` when it is not the text as it stands.
std::string_view keyText(simdjson::ondemand::raw_json_string key, std::string& room);

/// Calls `read(key, value)` with each field of `object` in order; a key may come again. `read` says
/// whether it read the value, which is checked otherwise.
template <class Read>
void forEachField(simdjson::ondemand::object object, Read read) {
  std::string room;
  for (auto element : object) {
    simdjson::ondemand::field field = std::move(element);
    const std::string_view key = keyText(field.key(), room);
    simdjson::ondemand::value value = field.value();
    if (!read(key, value)) expectValue(value);
  }
}

/// `forEachField` of the object that all of `bytes` is; JSON of another shape is checked, and read
/// as an object without fields. Fails with `JSONError`.
template <class Read>
void forEachRootField(QByteArray bytes, Read read) {
  readJSON([&] {
    JSONDocument document(std::move(bytes));
    if (!document.isObject()) return document.expectWhole();
    forEachField(document.object(), read);
    document.expectEnd();
  });
}

/// Calls `read(object)` with each object in `array`; false when something else was among them,
/// which is checked.
template <class Read>
bool forEachObject(simdjson::ondemand::array array, Read read) {
  bool onlyObjects = true;
  for (auto element : array) {
    simdjson::ondemand::value value = element.value();
    if (value.type() == simdjson::ondemand::json_type::object) {
      read(simdjson::ondemand::object(value.get_object()));
    } else {
      onlyObjects = false;
      expectValue(value);
    }
  }
  return onlyObjects;
}

/// A whole text of decimal digits, with or without a sign, that fits in 64 bits.
std::optional<std::int64_t> wholeNumber(std::string_view text);

/// A whole text that is a decimal floating-point number.
std::optional<double> decimalNumber(std::string_view text);

}  // namespace vantor
