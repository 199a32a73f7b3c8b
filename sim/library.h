#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace sim {

enum class Kind { live, movie, series };

// As in addresses: "live", "movie", "series".
std::string_view kindName(Kind kind);

// Provider id of the entry at an index, and back; nothing for an id that is none of `count`
// entries.
long long entryId(Kind kind, int index);
std::optional<int> entryIndex(Kind kind, std::string_view id, int count);

// Extension that the row of a movie names; empty where it names none.
std::string_view movieExtension(int index);

std::string categoriesJson(Kind kind);
// `count` distinct entries, plus some rows with a repeated id or none. Posters are at
// `base`/poster/KIND/ID.png. 90,000 movies are about 33 MB.
std::string rowsJson(Kind kind, int count, const std::string& base);
// Those of them that are in the category of that id, with the same running numbers: "0" is that of
// rows without one, and an empty id that of all.
std::string rowsJson(Kind kind, int count, const std::string& base, const std::string& category);

// Answer of "get_series_info". Some shows have no episodes, which is then a list, not an object.
std::string seriesInfoJson(int show, const std::string& base);
// The show's index, for the id of one of its episodes.
std::optional<int> episodeShow(std::string_view id, int shows);

}  // namespace sim
