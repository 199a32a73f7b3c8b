#include "json/base64_text.h"

#include <QByteArray>
#include <algorithm>

#include <simdjson.h>

namespace vantor {
namespace {

constexpr bool isBase64(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '+' ||
         c == '/';
}

}  // namespace

std::optional<QString> textFromBase64(std::string_view encoded) {
  // QByteArray forgives wrong padding, so the form is checked here.
  if (encoded.size() % 4 != 0) return std::nullopt;
  std::string_view digits = encoded;
  for (int padding = 0; padding < 2 && digits.ends_with('='); ++padding) digits.remove_suffix(1);
  if (!std::all_of(digits.begin(), digits.end(), isBase64)) return std::nullopt;
  const QByteArray bytes = QByteArray::fromBase64(
      QByteArray::fromRawData(encoded.data(), static_cast<qsizetype>(encoded.size())));
  if (!simdjson::validate_utf8(bytes.constData(), static_cast<std::size_t>(bytes.size())))
    return std::nullopt;
  return QString::fromUtf8(bytes);
}

}  // namespace vantor
