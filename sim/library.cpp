#include "sim/library.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

#include "sim/json_writer.h"
#include "sim/names.h"

namespace sim {
namespace {

using namespace std::string_view_literals;

constexpr std::array liveCategories = {"General"sv, "News"sv,  "Sport"sv,       "Kids"sv,
                                       "Films"sv,   "Music"sv, "Documentary"sv, "Regional"sv,
                                       "العربية"sv, "Radio"sv};
constexpr std::array movieCategories = {"New"sv,     "Drama"sv,   "Comedy"sv,     "Thriller"sv,
                                        "Family"sv,  "Science"sv, "History"sv,    "Documentary"sv,
                                        "Classic"sv, "Crime"sv,   "Für Kinder"sv, "🎄 Seasonal"sv};
constexpr std::array showCategories = {"New"sv,    "Drama"sv,       "Comedy"sv,  "Crime"sv,
                                       "Family"sv, "Documentary"sv, "Reality"sv, "Miniseries"sv};

constexpr long long firstId[] = {1001, 200001, 5001};
constexpr int firstCategory[] = {1, 101, 201};
// Episode ids are this many apart from show to show.
constexpr long long episodesPerShow = 1000;
constexpr long long firstEpisode = 10'000'000;

int position(Kind kind) {
  return static_cast<int>(kind);
}

int categoryCount(Kind kind) {
  constexpr std::array counts = {liveCategories.size(), movieCategories.size(),
                                 showCategories.size()};
  return static_cast<int>(counts[position(kind)]);
}

std::uint64_t rowNumber(Kind kind, int index) {
  return scatter(static_cast<unsigned>(index), 10 + position(kind));
}

// The categories that a row is in; the first is that which it names, most of the time.
std::vector<int> categoriesOf(Kind kind, int index) {
  if (index % 62 == 48) return {};
  const auto number = rowNumber(kind, index) >> 40;
  const auto count = static_cast<std::uint64_t>(categoryCount(kind));
  const auto first = firstCategory[position(kind)];
  const auto category = first + static_cast<int>(number % count);
  if (index % 10 != 5) return {category};
  return {category, first + static_cast<int>((number + 1) % count)};
}

void putCategory(JsonWriter& json, int index, const std::vector<int>& categories) {
  if (index % 31 == 17) {
    put(json, "category_id", categories.empty() ? "" : "999");
  } else {
    put(json, "category_id", categories.front(), index % 4 == 1 ? Form::number : Form::text);
  }
  json.Key("category_ids");
  json.StartArray();
  for (const int category : categories) json.Int(category);
  json.EndArray();
}

void putName(JsonWriter& json, int index, const std::string& name) {
  if (index % 23 == 11) {
    if (index % 2 == 1) putNull(json, "name");
  } else {
    put(json, "name", name);
  }
}

void putRating(JsonWriter& json, std::uint64_t number) {
  const auto tenths = (3 + number % 6) * 10 + number / 8 % 10;
  switch (number % 5) {
    case 0:
      put(json, "rating", static_cast<double>(tenths) / 10);
      break;
    case 1:
      put(json, "rating", "");
      break;
    default:
      put(json, "rating", std::to_string(tenths / 10) + "." + std::to_string(tenths % 10));
  }
  put(json, "rating_5based", static_cast<double>(1 + number % 4) + 0.5);
}

void putYear(JsonWriter& json, std::uint64_t number) {
  if (number % 7 == 1) return;
  put(json, "year", 1950 + static_cast<int>(number % 76),
      number % 7 == 0 ? Form::number : Form::text);
}

std::string poster(Kind kind, int index, const std::string& base) {
  return base + "/poster/" + std::string(kindName(kind)) + "/" +
         std::to_string(entryId(kind, index)) + ".png";
}

void putChannel(JsonWriter& json, int index, std::uint64_t number, const std::string& base) {
  putName(json, index, channelName(index));
  put(json, "stream_type", "live");
  put(json, "stream_icon", index % 9 == 8 ? "" : poster(Kind::live, index, base));
  if (number % 3 == 0) {
    putNull(json, "epg_channel_id");
  } else {
    put(json, "epg_channel_id", index, Form::text);
  }
  put(json, "added", 1'600'000'000 + index * 61, Form::text);
  put(json, "is_adult", "0");
  put(json, "custom_sid", "");
  put(json, "tv_archive", number % 2 == 0 ? 1 : 0);
  put(json, "direct_source", "");
  put(json, "tv_archive_duration", number % 2 == 0 ? 7 : 0,
      number % 2 == 0 ? Form::text : Form::number);
}

void putMovie(JsonWriter& json, int index, std::uint64_t number, const std::string& base) {
  putName(json, index, movieName(index));
  put(json, "stream_type", "movie");
  put(json, "stream_icon", index % 19 == 18 ? "" : poster(Kind::movie, index, base));
  putRating(json, number);
  putYear(json, number >> 8);
  put(json, "added", 1'600'000'000 + index * 61, Form::text);
  put(json, "is_adult", "0");
  const auto extension = movieExtension(index);
  if (!extension.empty()) put(json, "container_extension", extension);
  put(json, "custom_sid", "");
  put(json, "direct_source", "");
  if (index % 4 == 0) put(json, "plot", plotText(number));
  if (index % 4 == 1) putNull(json, "plot");
}

void putShow(JsonWriter& json, int index, std::uint64_t number, const std::string& base) {
  putName(json, index, showName(index));
  put(json, "cover", index % 19 == 18 ? "" : poster(Kind::series, index, base));
  if (index % 2 == 0) put(json, "plot", plotText(number));
  if (index % 4 == 0) {
    put(json, "cast", personName(number >> 8) + ", " + personName(number >> 16));
    put(json, "director", personName(number >> 24));
  }
  put(json, "genre", genreName(number >> 16));
  put(json, "last_modified", 1'600'000'000 + index * 61, Form::text);
  putRating(json, number);
  putYear(json, number >> 8);
  json.Key("backdrop_path");
  json.StartArray();
  json.EndArray();
}

void writeRow(JsonWriter& json, Kind kind, int index, int running, Form idForm,
              const std::string& base) {
  const auto number = rowNumber(kind, index);
  json.StartObject();
  put(json, "num", running);
  put(json, kind == Kind::series ? "series_id" : "stream_id", entryId(kind, index), idForm);
  switch (kind) {
    case Kind::live:
      putChannel(json, index, number, base);
      break;
    case Kind::movie:
      putMovie(json, index, number, base);
      break;
    case Kind::series:
      putShow(json, index, number, base);
      break;
  }
  putCategory(json, index, categoriesOf(kind, index));
  json.EndObject();
}

void writeEpisode(JsonWriter& json, int show, int season, int episode, const std::string& base) {
  const auto number = scatter(static_cast<unsigned>(show * 1000 + season * 100 + episode), 20);
  const auto id = firstEpisode + show * episodesPerShow + season * 100 + episode;
  json.StartObject();
  put(json, "id", id, number % 3 == 0 ? Form::number : Form::text);
  put(json, "episode_num", episode, number % 4 == 0 ? Form::text : Form::number);
  put(json, "title", episodeName(show, season, episode));
  if (number % 5 != 0) put(json, "container_extension", number % 5 == 1 ? "mp4" : "mkv");
  json.Key("info");
  json.StartObject();
  put(json, "plot", plotText(number));
  put(json, "movie_image", poster(Kind::series, show, base));
  put(json, "duration_secs", 60);
  json.EndObject();
  put(json, "season", season);
  put(json, "direct_source", "");
  json.EndObject();
}

void putSeasons(JsonWriter& json, int seasons) {
  json.Key("seasons");
  json.StartArray();
  for (int season = 1; season <= seasons; ++season) {
    json.StartObject();
    put(json, "season_number", season);
    put(json, "name", "Season " + std::to_string(season));
    json.EndObject();
  }
  json.EndArray();
}

void putEpisodes(JsonWriter& json, int show, int seasons, std::uint64_t number,
                 const std::string& base) {
  json.Key("episodes");
  json.StartObject();
  // Latest season first and specials last: the order of the keys must not matter to a client.
  for (int season = seasons; season >= (show % 5 == 2 ? 0 : 1); --season) {
    const int episodes = season == 0 ? 2 : 4 + static_cast<int>(scatter(number, season) % 9);
    json.Key(std::to_string(season).c_str());
    json.StartArray();
    for (int episode = 1; episode <= episodes; ++episode) {
      // The second and third change places, and the first comes twice.
      const int listed = episode == 2 && episodes > 2 ? 3 : episode == 3 ? 2 : episode;
      writeEpisode(json, show, season, listed, base);
    }
    if (season == 1) writeEpisode(json, show, season, 1, base);
    json.EndArray();
  }
  json.EndObject();
}

std::optional<long long> number(std::string_view text) {
  long long value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace

std::string_view kindName(Kind kind) {
  constexpr std::array nameTable = {"live"sv, "movie"sv, "series"sv};
  return nameTable[position(kind)];
}

long long entryId(Kind kind, int index) {
  return firstId[position(kind)] + index;
}

std::optional<int> entryIndex(Kind kind, std::string_view id, int count) {
  const auto value = number(id);
  if (!value || *value < firstId[position(kind)] || *value >= firstId[position(kind)] + count) {
    return std::nullopt;
  }
  return static_cast<int>(*value - firstId[position(kind)]);
}

std::string_view movieExtension(int index) {
  if (index % 13 == 12) return "";
  if (index % 20 == 19) return "m4a";
  return index % 3 == 1 ? "mp4" : "mkv";
}

std::string categoriesJson(Kind kind) {
  return writtenJson([&](JsonWriter& json) {
    const auto begin = [&](std::string_view name) {
      json.StartObject();
      put(json, "category_name", name);
      put(json, "parent_id", 0);
    };
    json.StartArray();
    const int count = categoryCount(kind);
    for (int i = 0; i < count; ++i) {
      begin(kind == Kind::live    ? liveCategories[i]
            : kind == Kind::movie ? movieCategories[i]
                                  : showCategories[i]);
      put(json, "category_id", firstCategory[position(kind)] + i,
          i % 4 == 2 ? Form::number : Form::text);
      json.EndObject();
    }
    begin("Repeated");
    put(json, "category_id", firstCategory[position(kind)], Form::text);
    json.EndObject();
    begin("Without an id");
    json.EndObject();
    json.EndArray();
  });
}

std::string rowsJson(Kind kind, int count, const std::string& base) {
  return rowsJson(kind, count, base, "");
}

std::string rowsJson(Kind kind, int count, const std::string& base, const std::string& category) {
  const auto asked = number(category);
  const auto isAsked = [&](int index) {
    if (!asked) return true;
    const auto categories = categoriesOf(kind, index);
    return *asked == 0 ? categories.empty()
                       : std::ranges::find(categories, *asked) != categories.end();
  };
  const auto write = [&](JsonWriter& json) {
    json.StartArray();
    int running = 1;
    for (int i = 0; i < count; ++i) {
      const bool repeated = i % (i < 100 ? 20 : 1000) == 10;
      const int num = std::exchange(running, running + (repeated ? 3 : 1));
      if (!isAsked(i)) continue;
      const auto form = i % 7 == 3 ? Form::text : Form::number;
      writeRow(json, kind, i, num, form, base);
      if (!repeated) continue;
      writeRow(json, kind, i, num + 1, form == Form::text ? Form::number : Form::text, base);
      json.StartObject();
      put(json, "num", num + 2);
      put(json, "name", "Without an id");
      json.EndObject();
    }
    json.EndArray();
  };
  return writtenJson(write, asked ? 1024 : static_cast<std::size_t>(count) * 420 + 1024);
}

std::string seriesInfoJson(int show, const std::string& base) {
  const auto number = scatter(static_cast<unsigned>(show), 30);
  const int seasons = 1 + static_cast<int>(number % 4);
  return writtenJson([&](JsonWriter& json) {
    json.StartObject();
    putSeasons(json, seasons);
    json.Key("info");
    json.StartObject();
    put(json, "name", showName(show));
    put(json, "cover", poster(Kind::series, show, base));
    put(json, "plot", plotText(number));
    json.EndObject();
    if (show % 12 == 9) {
      json.Key("episodes");
      json.StartArray();
      json.EndArray();
    } else {
      putEpisodes(json, show, seasons, number, base);
    }
    json.EndObject();
  });
}

std::optional<int> episodeShow(std::string_view id, int shows) {
  const auto value = number(id);
  if (!value || *value < firstEpisode) return std::nullopt;
  const auto show = (*value - firstEpisode) / episodesPerShow;
  if (show >= shows) return std::nullopt;
  return static_cast<int>(show);
}

}  // namespace sim
