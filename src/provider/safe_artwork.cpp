#include "provider/safe_artwork.h"

#include <QUrl>

namespace vantor {
namespace {

constexpr bool isLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

constexpr bool isHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Whether `text` is so plain an address that parsing it would change nothing. Libraries carry one
/// a row, and QUrl takes longer over them than reading the whole answer does.
bool isPlain(std::string_view text) {
  if (text.starts_with("https://"))
    text.remove_prefix(8);
  else if (text.starts_with("http://"))
    text.remove_prefix(7);
  else
    return false;
  std::size_t i = 0;
  bool letter = false;
  char previous = '.';
  for (; i < text.size() && text[i] != '/'; ++i) {
    const char c = text[i];
    const bool lower = (c >= 'a' && c <= 'z');
    const bool digit = (c >= '0' && c <= '9');
    if (!lower && !digit && c != '-' && c != '.') return false;
    // Empty labels, hyphens at a label's edge and punycode are for the real parser.
    if ((c == '.' || c == '-') && (previous == '.' || previous == '-')) return false;
    letter |= lower;
    previous = c;
  }
  if (!letter || i > 63 || previous == '.' || previous == '-') return false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '%') {
      if (i + 2 >= text.size() || !isHexDigit(text[i + 1]) || !isHexDigit(text[i + 2]))
        return false;
      i += 2;
    } else if (!isLetterOrDigit(c) &&
               std::string_view("-._~/?=&+,;:@!$'()*").find(c) == std::string_view::npos) {
      return false;
    }
  }
  return true;
}

}  // namespace

std::optional<std::string> safeArtwork(std::string_view text) {
  if (text.empty()) return std::nullopt;
  if (isPlain(text)) return std::string(text);
  const auto scheme = text.find("://");
  if (scheme == std::string_view::npos) return std::nullopt;
  std::string_view authority = text.substr(scheme + 3);
  authority = authority.substr(0, authority.find_first_of("/?#"));
  // Longer than any name of a host. QUrl's time over one grows with the square of its length.
  if (authority.size() > 255 || authority.find('@') != std::string_view::npos) return std::nullopt;
  const QUrl address(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  const bool web =
      address.scheme() == QLatin1String("https") || address.scheme() == QLatin1String("http");
  if (!address.isValid() || !web || address.host().isEmpty() || !address.userInfo().isEmpty())
    return std::nullopt;
  return address.toEncoded().toStdString();
}

}  // namespace vantor
