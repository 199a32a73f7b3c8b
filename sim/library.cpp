#include "sim/library.h"

#include <array>
#include <charconv>

#include "sim/json_text.h"
#include "sim/names.h"

namespace sim {
namespace {

using namespace std::string_view_literals;

constexpr std::array kLiveCategories = {"General"sv, "News"sv,  "Sport"sv,       "Kids"sv,
                                        "Films"sv,   "Music"sv, "Documentary"sv, "Regional"sv,
                                        "العربية"sv, "Radio"sv};
constexpr std::array kMovieCategories = {"New"sv,     "Drama"sv,   "Comedy"sv,     "Thriller"sv,
                                         "Family"sv,  "Science"sv, "History"sv,    "Documentary"sv,
                                         "Classic"sv, "Crime"sv,   "Für Kinder"sv, "🎄 Seasonal"sv};
constexpr std::array kShowCategories = {"New"sv,    "Drama"sv,       "Comedy"sv,  "Crime"sv,
                                        "Family"sv, "Documentary"sv, "Reality"sv, "Miniseries"sv};

constexpr long long kFirstId[] = {1001, 200001, 5001};
constexpr int kFirstCategory[] = {1, 101, 201};
// Episode ids are this many apart from show to show.
constexpr long long kEpisodesPerShow = 1000;
constexpr long long kFirstEpisode = 10'000'000;

int position(Kind kind) {
  return static_cast<int>(kind);
}

int categoryCount(Kind kind) {
  constexpr std::array kCounts = {kLiveCategories.size(), kMovieCategories.size(),
                                  kShowCategories.size()};
  return static_cast<int>(kCounts[position(kind)]);
}

std::string quoted(long long number) {
  return '"' + std::to_string(number) + '"';
}

void appendCategory(std::string& row, Kind kind, int index, std::uint64_t number) {
  const auto category =
      kFirstCategory[position(kind)] + static_cast<int>(number % categoryCount(kind));
  if (index % 31 == 17) {
    appendRaw(row, "category_id", index % 2 == 0 ? "\"\"" : "\"999\"");
  } else if (index % 4 == 1) {
    appendNumber(row, "category_id", category);
  } else {
    appendRaw(row, "category_id", quoted(category));
  }
  appendRaw(row, "category_ids", "[" + std::to_string(category) + "]");
}

void appendName(std::string& row, int index, const std::string& name) {
  if (index % 23 == 11) {
    if (index % 2 == 1) appendRaw(row, "name", "null");
  } else {
    appendText(row, "name", name);
  }
}

void appendRating(std::string& row, std::uint64_t number) {
  const auto rating = std::to_string(3 + number % 6) + "." + std::to_string(number / 8 % 10);
  switch (number % 5) {
    case 0:
      appendRaw(row, "rating", rating);
      break;
    case 1:
      appendRaw(row, "rating", "\"\"");
      break;
    default:
      appendText(row, "rating", rating);
  }
  appendRaw(row, "rating_5based", std::to_string(1 + number % 4) + ".5");
}

void appendYear(std::string& row, std::uint64_t number) {
  const auto year = 1950 + static_cast<long long>(number % 76);
  if (number % 7 == 0) {
    appendNumber(row, "year", year);
  } else if (number % 7 != 1) {
    appendRaw(row, "year", quoted(year));
  }
}

std::string poster(Kind kind, int index, const std::string& base) {
  return base + "/poster/" + std::string(kindName(kind)) + "/" +
         std::to_string(entryId(kind, index)) + ".png";
}

void appendChannel(std::string& row, int index, std::uint64_t number, const std::string& base) {
  appendName(row, index, channelName(index));
  appendText(row, "stream_type", "live");
  appendText(row, "stream_icon", index % 9 == 8 ? "" : poster(Kind::live, index, base));
  appendRaw(row, "epg_channel_id", number % 3 == 0 ? "null" : quoted(index));
  appendRaw(row, "added", quoted(1'600'000'000 + index * 61));
  appendText(row, "is_adult", "0");
  appendText(row, "custom_sid", "");
  appendNumber(row, "tv_archive", number % 2 == 0 ? 1 : 0);
  appendText(row, "direct_source", "");
  appendRaw(row, "tv_archive_duration", number % 2 == 0 ? "\"7\"" : "0");
}

void appendMovie(std::string& row, int index, std::uint64_t number, const std::string& base) {
  appendName(row, index, movieName(index));
  appendText(row, "stream_type", "movie");
  appendText(row, "stream_icon", index % 19 == 18 ? "" : poster(Kind::movie, index, base));
  appendRating(row, number);
  appendYear(row, number >> 8);
  appendRaw(row, "added", quoted(1'600'000'000 + index * 61));
  appendText(row, "is_adult", "0");
  const auto extension = movieExtension(index);
  if (!extension.empty()) appendText(row, "container_extension", extension);
  appendText(row, "custom_sid", "");
  appendText(row, "direct_source", "");
  if (index % 4 == 0) appendText(row, "plot", plotText(number));
  if (index % 4 == 1) appendRaw(row, "plot", "null");
}

void appendShow(std::string& row, int index, std::uint64_t number, const std::string& base) {
  appendName(row, index, showName(index));
  appendText(row, "cover", index % 19 == 18 ? "" : poster(Kind::series, index, base));
  if (index % 2 == 0) appendText(row, "plot", plotText(number));
  if (index % 4 == 0) {
    appendText(row, "cast", personName(number >> 8) + ", " + personName(number >> 16));
    appendText(row, "director", personName(number >> 24));
  }
  appendText(row, "genre", genreName(number >> 16));
  appendRaw(row, "last_modified", quoted(1'600'000'000 + index * 61));
  appendRating(row, number);
  appendYear(row, number >> 8);
  appendRaw(row, "backdrop_path", "[]");
}

void appendRow(std::string& json, Kind kind, int index, int running, bool idAsText,
               const std::string& base) {
  const auto number = scatter(static_cast<unsigned>(index), 10 + position(kind));
  const auto idName = kind == Kind::series ? "series_id"sv : "stream_id"sv;
  const auto id = entryId(kind, index);
  json += '{';
  appendNumber(json, "num", running);
  appendRaw(json, idName, idAsText ? quoted(id) : std::to_string(id));
  switch (kind) {
    case Kind::live:
      appendChannel(json, index, number, base);
      break;
    case Kind::movie:
      appendMovie(json, index, number, base);
      break;
    case Kind::series:
      appendShow(json, index, number, base);
      break;
  }
  appendCategory(json, kind, index, number >> 40);
  closeJson(json, '}');
  json += ',';
}

void appendEpisode(std::string& json, int show, int season, int episode, const std::string& base) {
  const auto number = scatter(static_cast<unsigned>(show * 1000 + season * 100 + episode), 20);
  const auto id = kFirstEpisode + show * kEpisodesPerShow + season * 100 + episode;
  json += '{';
  appendRaw(json, "id", number % 3 == 0 ? std::to_string(id) : quoted(id));
  appendRaw(json, "episode_num", number % 4 == 0 ? quoted(episode) : std::to_string(episode));
  appendText(json, "title", episodeName(show, season, episode));
  if (number % 5 != 0) appendText(json, "container_extension", number % 5 == 1 ? "mp4" : "mkv");
  json += "\"info\":{";
  appendText(json, "plot", plotText(number));
  appendText(json, "movie_image", poster(Kind::series, show, base));
  appendNumber(json, "duration_secs", 60);
  closeJson(json, '}');
  json += ',';
  appendNumber(json, "season", season);
  appendText(json, "direct_source", "");
  closeJson(json, '}');
  json += ',';
}

std::optional<long long> number(std::string_view text) {
  long long value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

}  // namespace

std::string_view kindName(Kind kind) {
  constexpr std::array kNames = {"live"sv, "movie"sv, "series"sv};
  return kNames[position(kind)];
}

long long entryId(Kind kind, int index) {
  return kFirstId[position(kind)] + index;
}

std::optional<int> entryIndex(Kind kind, std::string_view id, int count) {
  const auto value = number(id);
  if (!value || *value < kFirstId[position(kind)] || *value >= kFirstId[position(kind)] + count) {
    return std::nullopt;
  }
  return static_cast<int>(*value - kFirstId[position(kind)]);
}

std::string_view movieExtension(int index) {
  if (index % 13 == 12) return "";
  if (index % 20 == 19) return "m4a";
  return index % 3 == 1 ? "mp4" : "mkv";
}

std::string categoriesJson(Kind kind) {
  std::string json = "[";
  const int count = categoryCount(kind);
  for (int i = 0; i < count; ++i) {
    const auto id = kFirstCategory[position(kind)] + i;
    const auto name = kind == Kind::live    ? kLiveCategories[i]
                      : kind == Kind::movie ? kMovieCategories[i]
                                            : kShowCategories[i];
    json += '{';
    appendRaw(json, "category_id", i % 4 == 2 ? std::to_string(id) : quoted(id));
    appendText(json, "category_name", name);
    appendRaw(json, "parent_id", "0}");
  }
  json += R"({"category_id":")" + std::to_string(kFirstCategory[position(kind)]) +
          R"(","category_name":"Repeated","parent_id":0},)";
  json += R"({"category_name":"Without an id","parent_id":0}])";
  return json;
}

std::string rowsJson(Kind kind, int count, const std::string& base) {
  std::string json = "[";
  json.reserve(static_cast<std::size_t>(count) * 420 + 1024);
  int running = 1;
  for (int i = 0; i < count; ++i) {
    const bool idAsText = i % 7 == 3;
    appendRow(json, kind, i, running++, idAsText, base);
    if (i % (i < 100 ? 20 : 1000) == 10) {
      appendRow(json, kind, i, running++, !idAsText, base);
      json += R"({"num":)" + std::to_string(running++) + R"(,"name":"Without an id"},)";
    }
  }
  closeJson(json, ']');
  return json;
}

std::string seriesInfoJson(int show, const std::string& base) {
  const auto number = scatter(static_cast<unsigned>(show), 30);
  const int seasons = 1 + static_cast<int>(number % 4);
  std::string json = "{\"seasons\":[";
  for (int season = 1; season <= seasons; ++season) {
    json += R"({"season_number":)" + std::to_string(season) + R"(,"name":"Season )" +
            std::to_string(season) + "\"},";
  }
  closeJson(json, ']');
  json += ",\"info\":{";
  appendText(json, "name", showName(show));
  appendText(json, "cover", poster(Kind::series, show, base));
  appendText(json, "plot", plotText(number));
  closeJson(json, '}');
  if (show % 12 == 9) return json + ",\"episodes\":[]}";

  json += ",\"episodes\":{";
  // Latest season first and specials last: the order of the keys must not matter to a client.
  for (int season = seasons; season >= (show % 5 == 2 ? 0 : 1); --season) {
    const int episodes = season == 0 ? 2 : 4 + static_cast<int>(scatter(number, season) % 9);
    json += '"' + std::to_string(season) + "\":[";
    for (int episode = 1; episode <= episodes; ++episode) {
      // The second and third change places, and the first comes twice.
      const int listed = episode == 2 && episodes > 2 ? 3 : episode == 3 ? 2 : episode;
      appendEpisode(json, show, season, listed, base);
    }
    if (season == 1) appendEpisode(json, show, season, 1, base);
    closeJson(json, ']');
    json += ',';
  }
  closeJson(json, '}');
  return json + "}";
}

std::optional<int> episodeShow(std::string_view id, int shows) {
  const auto value = number(id);
  if (!value || *value < kFirstEpisode) return std::nullopt;
  const auto show = (*value - kFirstEpisode) / kEpisodesPerShow;
  if (show >= shows) return std::nullopt;
  return static_cast<int>(show);
}

}  // namespace sim
