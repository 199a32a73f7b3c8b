#pragma once

#include <QString>
#include <optional>
#include <string_view>

namespace vantor {

/// The text whose UTF-8 form `encoded` holds in base64 (RFC 4648, section 4: with padding, no line
/// breaks); absent when it holds anything else.
std::optional<QString> textFromBase64(std::string_view encoded);

}  // namespace vantor
