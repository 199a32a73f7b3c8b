#include "json/json_reading.h"

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

/// Fails when the string has an escape that is none. `in` stands after the opening quote; the
/// closing quote is known to exist.
void expectEscapes(const char* in) {
  while (*in != '"') {
    if (*in++ != '\\') continue;
    const char escape = *in++;
    if (escape == 'u')
      hexDigits(in);
    else if (std::string_view("\"\\/bfnrt").find(escape) == std::string_view::npos)
      throw JSONError();
  }
}

/// The characters after the opening quote up to the next quote, which ends the string unless there
/// is an escape among them.
struct StringStart {
  explicit StringStart(simdjson::ondemand::raw_json_string string) {
    const char* const begin = string.raw();
    const auto* const quote = static_cast<const char*>(rawmemchr(begin, '"'));
    text = std::string_view(begin, static_cast<std::size_t>(quote - begin));
    escaped = std::memchr(begin, '\\', text.size());
  }
  std::string_view text;
  bool escaped = false;
};

void expectString(simdjson::ondemand::raw_json_string string) {
  const StringStart start(string);
  if (start.escaped) expectEscapes(start.text.data());
}

/// The text of a number; fails when it is not in the form of one.
std::string_view numberToken(simdjson::ondemand::value value) {
  std::string_view token = value.raw_json_token();
  const std::size_t last = token.find_last_not_of(" \t\n\r");
  token = token.substr(0, last + 1);
  std::size_t i = 0;
  const auto at = [&](std::string_view any) {
    return i < token.size() && any.find(token[i]) != std::string_view::npos;
  };
  const auto digits = [&] {
    const std::size_t begin = i;
    while (i < token.size() && token[i] >= '0' && token[i] <= '9') ++i;
    if (i == begin) throw JSONError();
  };
  if (at("-")) ++i;
  if (at("0"))
    ++i;
  else
    digits();
  if (at(".")) ++i, digits();
  if (at("eE")) {
    ++i;
    if (at("+-")) ++i;
    digits();
  }
  if (i < token.size()) throw JSONError();
  return token;
}

void appendNumber(std::string_view token, std::string& text) {
  if (token.find_first_not_of("-0123456789") == std::string_view::npos) {
    text += token;
    return;
  }
  double number = 0;
  const auto [end, error] = std::from_chars(token.data(), token.data() + token.size(), number);
  if (error != std::errc()) {  // out of a double's range
    text += token;
    return;
  }
  constexpr double longest = 1e21;  // beyond, the digits would be longer than what was sent
  char buffer[32];
  const auto written =
      number == std::trunc(number) && std::abs(number) < longest
          ? std::to_chars(buffer, buffer + sizeof buffer, number, std::chars_format::fixed)
          : std::to_chars(buffer, buffer + sizeof buffer, number);
  text.append(buffer, written.ptr);
}

void expectValue(simdjson::ondemand::value value, int depth) {
  constexpr int deepest = 500;  // the walk's own calls nest as deep
  if (depth > deepest) throw JSONError();
  switch (value.type()) {
    case simdjson::ondemand::json_type::object: {
      simdjson::ondemand::object object = value.get_object();
      for (auto element : object) {
        simdjson::ondemand::field field = std::move(element);
        expectString(field.key());
        expectValue(field.value(), depth + 1);
      }
      break;
    }
    case simdjson::ondemand::json_type::array: {
      simdjson::ondemand::array array = value.get_array();
      for (auto element : array) expectValue(element.value(), depth + 1);
      break;
    }
    case simdjson::ondemand::json_type::string:
      expectString(value.get_raw_json_string());
      break;
    case simdjson::ondemand::json_type::number:
      numberToken(value);
      break;
    case simdjson::ondemand::json_type::boolean:
      static_cast<void>(bool(value.get_bool()));
      break;
    case simdjson::ondemand::json_type::null:
      if (!value.is_null()) throw JSONError();
      break;
    default:
      throw JSONError();
  }
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

void JSONDocument::expectWhole() {
  if (isObject()) {
    forEachField(object(), [](std::string_view, simdjson::ondemand::value) { return false; });
  } else {
    simdjson::ondemand::array elements = array();
    for (auto element : elements) expectValue(element.value());
  }
  expectEnd();
}

void expectValue(simdjson::ondemand::value value) {
  expectValue(value, 1);
}

void appendString(simdjson::ondemand::value value, std::string& text) {
  const StringStart start(value.get_raw_json_string());
  if (start.escaped)
    appendEscapedString(start.text.data(), text);
  else
    text += start.text;
}

std::string_view keyText(simdjson::ondemand::raw_json_string key, std::string& room) {
  const StringStart start(key);
  if (!start.escaped) return start.text;
  room.clear();
  appendEscapedString(start.text.data(), room);
  return room;
}

void appendValueText(simdjson::ondemand::value value, std::string& text) {
  switch (value.type()) {
    case simdjson::ondemand::json_type::string:
      appendString(value, text);
      break;
    case simdjson::ondemand::json_type::number:
      appendNumber(numberToken(value), text);
      break;
    case simdjson::ondemand::json_type::boolean:
      text += value.get_bool() ? '1' : '0';
      break;
    default:
      expectValue(value);
      break;
  }
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
