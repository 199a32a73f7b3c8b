#pragma once

#include <QStringView>
#include <array>
#include <optional>

#include "library/library_kind.h"

namespace vantor {

/// What the sidebar leads to, top to bottom.
enum class Section : unsigned char { search, live, movies, shows, favorites };

inline constexpr std::array allSections = {Section::search, Section::live, Section::movies,
                                           Section::shows, Section::favorites};

/// The library that the section shows; absent when it shows entries of every library.
constexpr std::optional<LibraryKind> libraryOf(Section section) {
  switch (section) {
    case Section::live:
      return LibraryKind::live;
    case Section::movies:
      return LibraryKind::movies;
    case Section::shows:
      return LibraryKind::shows;
    case Section::search:
    case Section::favorites:
      break;
  }
  return std::nullopt;
}

/// "search", "live", "movies", "shows" and "list", as the command line and the desktop name them.
std::optional<Section> sectionNamed(QStringView name);

}  // namespace vantor
