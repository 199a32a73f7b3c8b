#include "provider/json_reading.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace vantor {
namespace {

void appendUTF8(std::uint32_t code, std::string& text) {
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | code >> 6);
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0 | code >> 12);
    text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    text += static_cast<char>(0xF0 | code >> 18);
    text += static_cast<char>(0x80 | (code >> 12 & 0x3F));
    text += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  }
}

std::uint32_t hexDigits(const char*& in) {
  std::uint32_t code = 0;
  for (int i = 0; i < 4; ++i) {
    const char c = *in++;
    std::uint32_t digit = 0;
    if (c >= '0' && c <= '9')
      digit = static_cast<std::uint32_t>(c - '0');
    else if (c >= 'a' && c <= 'f')
      digit = static_cast<std::uint32_t>(c - 'a' + 10);
    else if (c >= 'A' && c <= 'F')
      digit = static_cast<std::uint32_t>(c - 'A' + 10);
    else
      throw JSONError();
    code = code << 4 | digit;
  }
  return code;
}

/// Decodes a string with escapes; simdjson's own decoder refuses unpaired surrogates. `in` stands
/// after the opening quote; the closing quote is known to exist.
void appendEscapedString(const char* in, std::string& text) {
  constexpr std::uint32_t replacement = 0xFFFD;
  while (*in != '"') {
    if (*in != '\\') {
      text += *in++;
      continue;
    }
    ++in;
    switch (const char escape = *in++) {
      case '"':
      case '\\':
      case '/':
        text += escape;
        break;
      case 'b':
        text += '\b';
        break;
      case 'f':
        text += '\f';
        break;
      case 'n':
        text += '\n';
        break;
      case 'r':
        text += '\r';
        break;
      case 't':
        text += '\t';
        break;
      case 'u': {
        std::uint32_t code = hexDigits(in);
        if (code >= 0xD800 && code < 0xDC00 && in[0] == '\\' && in[1] == 'u') {
          const char* next = in + 2;
          const std::uint32_t low = hexDigits(next);
          if (low >= 0xDC00 && low < 0xE000) {
            in = next;
            code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
          }
        }
        appendUTF8(code >= 0xD800 && code < 0xE000 ? replacement : code, text);
        break;
      }
      default:
        throw JSONError();
    }
  }
}

void appendNumber(std::string_view token, std::string& text) {
  while (!token.empty() && static_cast<unsigned char>(token.back()) <= ' ') token.remove_suffix(1);
  const std::string_view digits = token.starts_with('-') ? token.substr(1) : token;
  if (digits.empty() ||
      (digits.size() > 1 && digits[0] == '0' && digits[1] >= '0' && digits[1] <= '9'))
    throw JSONError();
  if (digits.find_first_not_of("0123456789") == std::string_view::npos) {
    text += token;
    return;
  }
  double number = 0;
  const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), number);
  if (end != token.data() + token.size()) throw JSONError();
  if (error != std::errc()) {  // out of a double's range
    text += token;
    return;
  }
  char buffer[400];
  const auto written =
      number == std::trunc(number)
          ? std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed)
          : std::to_chars(buffer, buffer + sizeof buffer, number);
  text.append(buffer, written.ptr);
}

}  // namespace

JSONDocument::JSONDocument(QByteArray bytes) : bytes_(std::move(bytes)) {
  if (bytes_.startsWith("\xEF\xBB\xBF")) bytes_.remove(0, 3);
  const qsizetype size = bytes_.size();
  bytes_.reserve(size + static_cast<qsizetype>(simdjson::SIMDJSON_PADDING));
  document_ = parser_.iterate(bytes_.constData(), static_cast<std::size_t>(size),
                              static_cast<std::size_t>(bytes_.capacity()));
  const simdjson::ondemand::json_type type = document_.type();
  if (type != simdjson::ondemand::json_type::object && type != simdjson::ondemand::json_type::array)
    throw JSONError();
}

void JSONDocument::expectEnd() {
  // Past the last token there is no location any more.
  const char* location = nullptr;
  if (document_.current_location().get(location) == simdjson::SUCCESS) throw JSONError();
}

void appendString(simdjson::ondemand::value value, std::string& text) {
  const simdjson::ondemand::raw_json_string raw = value.get_raw_json_string();
  const char* const begin = raw.raw();
  const auto* const quote = static_cast<const char*>(rawmemchr(begin, '"'));
  const auto length = static_cast<std::size_t>(quote - begin);
  if (std::memchr(begin, '\\', length))
    appendEscapedString(begin, text);
  else
    text.append(begin, length);
}

void appendValueText(simdjson::ondemand::value value, std::string& text) {
  switch (value.type()) {
    case simdjson::ondemand::json_type::string:
      appendString(value, text);
      break;
    case simdjson::ondemand::json_type::number:
      appendNumber(value.raw_json_token(), text);
      break;
    case simdjson::ondemand::json_type::boolean:
      text += value.get_bool() ? '1' : '0';
      break;
    case simdjson::ondemand::json_type::null:
      if (!value.is_null()) throw JSONError();
      break;
    default:
      break;
  }
}

std::optional<simdjson::ondemand::value> fieldOf(simdjson::ondemand::object& object,
                                                 std::string_view key) {
  simdjson::ondemand::value value;
  const simdjson::error_code error = object.find_field_unordered(key).get(value);
  if (error == simdjson::NO_SUCH_FIELD) return std::nullopt;
  if (error != simdjson::SUCCESS) throw JSONError();
  return value;
}

std::string valueString(simdjson::ondemand::object& object, std::string_view key) {
  std::string text;
  if (const auto value = fieldOf(object, key)) appendValueText(*value, text);
  return text;
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<double> decimalNumber(std::string_view text) {
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (text.empty() || error != std::errc() || end != text.data() + text.size() ||
      !std::isfinite(number))
    return std::nullopt;
  return number;
}

}  // namespace vantor
