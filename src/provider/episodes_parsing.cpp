#include "provider/episodes_parsing.h"

#include <algorithm>
#include <limits>
#include <string>
#include <unordered_set>

#include "provider/error_wording.h"
#include "provider/json_reading.h"

namespace vantor {
namespace {

struct EpisodeRow {
  std::string id, title, fileExtension;
  std::optional<std::int64_t> number;
};

struct Season {
  std::optional<std::int64_t> number;
  std::vector<EpisodeRow> rows;
};

/// Absent as well when the interface's whole numbers have no room for it.
std::optional<int> shownNumber(std::optional<std::int64_t> number) {
  if (!number || *number < std::numeric_limits<int>::min() ||
      *number > std::numeric_limits<int>::max())
    return std::nullopt;
  return static_cast<int>(*number);
}

EpisodeRow readRow(simdjson::ondemand::object object) {
  EpisodeRow row;
  std::string number;
  for (auto element : object) {
    simdjson::ondemand::field field = std::move(element);
    const std::string_view key = field.unescaped_key();
    std::string* const text = key == "id"                    ? &row.id
                              : key == "title"               ? &row.title
                              : key == "container_extension" ? &row.fileExtension
                              : key == "episode_num"         ? &number
                                                             : nullptr;
    if (!text) continue;
    text->clear();
    appendValueText(field.value(), *text);
  }
  row.number = wholeNumber(number);
  return row;
}

/// False when a season is not an array of objects.
bool readSeasons(simdjson::ondemand::object object, std::vector<Season>& seasons) {
  bool wellShaped = true;
  for (auto element : object) {
    simdjson::ondemand::field field = std::move(element);
    Season season;
    season.number = wholeNumber(field.unescaped_key());
    simdjson::ondemand::value rows = field.value();
    if (rows.type() != simdjson::ondemand::json_type::array) {
      wellShaped = false;
      continue;
    }
    simdjson::ondemand::array array = rows.get_array();
    for (auto item : array) {
      simdjson::ondemand::value row = item.value();
      if (row.type() == simdjson::ondemand::json_type::object)
        season.rows.push_back(readRow(row.get_object()));
      else
        wellShaped = false;
    }
    seasons.push_back(std::move(season));
  }
  return wellShaped;
}

/// Absent when the answer is JSON of another shape.
std::optional<std::vector<Season>> readAnswer(QByteArray answer) {
  return readJSON([&]() -> std::optional<std::vector<Season>> {
    JSONDocument document(std::move(answer));
    if (document.root().type() != simdjson::ondemand::json_type::object) return std::nullopt;
    simdjson::ondemand::object root = document.root().get_object();
    std::optional<std::vector<Season>> seasons;
    for (auto element : root) {
      simdjson::ondemand::field field = std::move(element);
      const std::string_view key = field.unescaped_key();
      if (key != "episodes") continue;
      seasons.reset();
      simdjson::ondemand::value value = field.value();
      if (value.type() != simdjson::ondemand::json_type::object) continue;
      seasons.emplace();
      if (!readSeasons(value.get_object(), *seasons)) seasons.reset();
    }
    document.expectEnd();
    return seasons;
  });
}

template <class Element>
void sortByNumber(std::vector<Element>& elements) {
  std::stable_sort(elements.begin(), elements.end(), [](const Element& a, const Element& b) {
    return a.number.value_or(0) < b.number.value_or(0);
  });
}

}  // namespace

QList<MediaItem> parseEpisodes(QByteArray answer, const MediaItem& show) {
  auto seasons = readAnswer(std::move(answer));
  if (!seasons) throw AppError(QStringLiteral("This show's episodes could not be read."));
  sortByNumber(*seasons);
  QList<MediaItem> episodes;
  std::unordered_set<std::string> seen;
  for (Season& season : *seasons) {
    sortByNumber(season.rows);
    for (const EpisodeRow& row : season.rows) {
      if (row.id.empty() || !seen.insert(row.id).second) continue;
      MediaItem episode;
      episode.providerID = QString::fromStdString(row.id);
      episode.id = QStringLiteral("episode:") + episode.providerID;
      episode.kind = LibraryKind::shows;
      episode.name = QString::fromStdString(row.title);
      episode.category = show.category;
      episode.artwork = show.artwork;
      episode.fileExtension = row.fileExtension.empty() ? QStringLiteral("mkv")
                                                        : QString::fromStdString(row.fileExtension);
      episode.episode = shownNumber(row.number);
      episode.season = shownNumber(season.number);
      episodes.push_back(std::move(episode));
    }
  }
  return episodes;
}

}  // namespace vantor
