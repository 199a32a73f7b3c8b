#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantor {

/// The address of a picture, encoded as it goes over the wire, when `text` is an absolute http or
/// https address with a host and without user or password.
std::optional<std::string> safeArtwork(std::string_view text);

}  // namespace vantor
