#pragma once

#include <string>
#include <string_view>

namespace sim {

// `encoding`: "gzip", "deflate", "br" or "zstd", as in the header Content-Encoding.
std::string packed(const std::string& encoding, std::string_view text);

// The beginning of a body that becomes 3.75 GiB: 4 MB of gzip or deflate, 6 KB of Brotli, 500 KB of
// Zstandard.
std::string bomb(const std::string& encoding);

}  // namespace sim
