#pragma once

#include <QString>
#include <QUrl>
#include <optional>
#include <string_view>

#include "library/library_kind.h"

namespace vantor {

struct MediaCategory {
  QString id;
  QString name;
  bool operator==(const MediaCategory&) const = default;
};

/// One entry of a library, or one episode of a show.
struct MediaItem {
  QString id;  // "movies:77", "episode:5", "live:example-0": the key of every per-entry store
  QString providerID;                    // the provider's own id
  LibraryKind kind = LibraryKind::live;  // episodes: shows
  QString name;
  QString category;  // a MediaCategory id; may be empty or unknown to the catalogue
  std::optional<QUrl> artwork;
  QString fileExtension;
  std::optional<QString> plot;
  std::optional<QString> rating;
  std::optional<QString> year;
  std::optional<int> episode;
  std::optional<int> season;
  std::optional<QString> show;  // name of the show that an episode belongs to
  QString showID;               // id of that show's entry; empty: not an episode
  bool isExample = false;

  bool operator==(const MediaItem&) const = default;
};

/// "kind:providerID", the id of a catalogue entry.
QString entryID(LibraryKind kind, QStringView providerID);
/// "kind:", which such an id begins with.
std::string_view idPrefix(LibraryKind kind);

}  // namespace vantor
