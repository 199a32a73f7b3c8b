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
/// `readJSON`.
class JSONDocument {
 public:
  explicit JSONDocument(QByteArray bytes);
  simdjson::ondemand::document& root() { return document_; }
  /// Fails when something follows the root value.
  void expectEnd();

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

/// Appends the text of a loosely typed value to `text`: a string as it stands, a number as decimal
/// text (an integer of any length keeps its digits), a boolean as "1" or "0", anything else
/// nothing.
void appendValueText(simdjson::ondemand::value value, std::string& text);

/// The decoded text of a JSON string; unpaired surrogates become U+FFFD.
void appendString(simdjson::ondemand::value value, std::string& text);

/// The field `key`; absent when `object` has none. The reader gives up at the first damage and must
/// not be asked again, so damage met on the way is thrown, not taken for absence.
std::optional<simdjson::ondemand::value> fieldOf(simdjson::ondemand::object& object,
                                                 std::string_view key);

/// `valueString` of the field `key`, the empty text when `object` has none.
std::string valueString(simdjson::ondemand::object& object, std::string_view key);

/// A whole text of decimal digits, with or without a sign, that fits in 64 bits.
std::optional<std::int64_t> wholeNumber(std::string_view text);

/// A whole text that is a decimal floating-point number.
std::optional<double> decimalNumber(std::string_view text);

}  // namespace vantor
