#pragma once

#include <QString>
#include <array>
#include <optional>

namespace vantor {

/// The provider's three libraries, in the order used wherever all of them are walked.
enum class LibraryKind : unsigned char { live, movies, shows };

inline constexpr std::array allLibraryKinds = {LibraryKind::live, LibraryKind::movies,
                                               LibraryKind::shows};

QString rawValue(LibraryKind kind);  // "live", "movies", "shows"

/// Absent for any text but the three raw values.
std::optional<LibraryKind> libraryKind(QStringView rawValue);

}  // namespace vantor
