#pragma once

#include <QString>
#include <array>

namespace vantor {

/// The provider's three libraries, in the order used wherever all of them are walked.
enum class LibraryKind : unsigned char { live, movies, shows };

inline constexpr std::array allLibraryKinds = {LibraryKind::live, LibraryKind::movies,
                                               LibraryKind::shows};

QString rawValue(LibraryKind kind);  // "live", "movies", "shows"

/// One text for each library, in the order of `allLibraryKinds`.
using LibraryTexts = std::array<const char16_t*, allLibraryKinds.size()>;

QString textOf(LibraryKind kind, const LibraryTexts& texts);

}  // namespace vantor
