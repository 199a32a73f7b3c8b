#include "provider/episodes_parsing.h"

#include <algorithm>
#include <limits>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "json/json_reading.h"
#include "library/text_hash.h"
#include "platform/app_error.h"
#include "platform/cancelled.h"

namespace vantor {

using namespace Qt::StringLiterals;

namespace {

struct EpisodeRow {
  std::string id, title, fileExtension;
  std::optional<std::int64_t> number;
};

struct Season {
  std::optional<std::int64_t> number;
  std::vector<EpisodeRow> rows;
};

using Seen = std::unordered_set<std::string, TextHash>;

AppError unreadable() {
  return AppError(AppError::tr("This show's episodes could not be read."));
}

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
  forEachField(object, [&](std::string_view key, simdjson::ondemand::value value) {
    std::string* const text = key == "id"                    ? &row.id
                              : key == "title"               ? &row.title
                              : key == "container_extension" ? &row.fileExtension
                              : key == "episode_num"         ? &number
                                                             : nullptr;
    if (!text) return false;
    text->clear();
    appendValueText(value, *text);
    return true;
  });
  row.number = wholeNumber(number);
  return row;
}

/// The seasons that have episodes.
class SeasonReader {
 public:
  explicit SeasonReader(const std::stop_token& stop) : stop_(stop) {}

  /// False when a season is not an array of objects.
  bool read(simdjson::ondemand::object object) {
    bool wellShaped = true;
    forEachField(object, [&](std::string_view key, simdjson::ondemand::value value) {
      throwIfStopped(stop_);
      const bool isArray = value.type() == simdjson::ondemand::json_type::array;
      std::vector<EpisodeRow> rows;
      if (!isArray || !readRows(value.get_array(), rows)) wellShaped = false;
      keep(std::string(key), std::move(rows));
      return isArray;
    });
    return wellShaped;
  }

  std::vector<Season> seasons() && { return std::move(seasons_); }

 private:
  bool readRows(simdjson::ondemand::array array, std::vector<EpisodeRow>& rows) {
    return forEachObject(array, [&](simdjson::ondemand::object object) {
      throwIfStopped(stop_);
      EpisodeRow row = readRow(object);
      if (row.id.empty()) return;
      if (++count_ > maximumEpisodeRows) throw unreadable();
      rows.push_back(std::move(row));
    });
  }

  void keep(std::string key, std::vector<EpisodeRow> rows) {
    const auto known = places_.find(key);
    if (known != places_.end()) {
      seasons_[known->second].rows = std::move(rows);
    } else if (!rows.empty()) {
      const auto number = wholeNumber(key);
      places_.emplace(std::move(key), seasons_.size());
      seasons_.push_back({number, std::move(rows)});
    }
  }

  const std::stop_token& stop_;
  std::vector<Season> seasons_;
  std::unordered_map<std::string, std::size_t, TextHash> places_;  // in `seasons_`, by key
  int count_ = 0;
};

/// Absent when the answer is JSON of another shape.
std::optional<std::vector<Season>> readAnswer(QByteArray answer, const std::stop_token& stop) {
  std::optional<std::vector<Season>> seasons;
  forEachRootField(std::move(answer), [&](std::string_view key, simdjson::ondemand::value value) {
    if (key != "episodes") return false;
    seasons.reset();
    if (value.type() != simdjson::ondemand::json_type::object) return false;
    SeasonReader reader(stop);
    if (reader.read(value.get_object())) seasons = std::move(reader).seasons();
    return true;
  });
  return seasons;
}

template <class Element>
void sortByNumber(std::vector<Element>& elements) {
  std::stable_sort(elements.begin(), elements.end(), [](const Element& a, const Element& b) {
    return a.number.value_or(0) < b.number.value_or(0);
  });
}

}  // namespace

QList<MediaItem> parseEpisodes(QByteArray answer, const MediaItem& show,
                               const std::stop_token& stop) {
  throwIfStopped(stop);
  auto seasons = readAnswer(std::move(answer), stop);
  if (!seasons) throw unreadable();
  sortByNumber(*seasons);
  QList<MediaItem> episodes;
  Seen seen;
  for (Season& season : *seasons) {
    sortByNumber(season.rows);
    for (const EpisodeRow& row : season.rows) {
      throwIfStopped(stop);
      if (!seen.insert(row.id).second) continue;
      MediaItem episode;
      episode.providerID = QString::fromStdString(row.id);
      episode.id = u"episode:"_s + episode.providerID;
      episode.kind = LibraryKind::shows;
      episode.name = QString::fromStdString(row.title);
      episode.category = show.category;
      episode.artwork = show.artwork;
      episode.fileExtension =
          row.fileExtension.empty() ? u"mkv"_s : QString::fromStdString(row.fileExtension);
      episode.episode = shownNumber(row.number);
      episode.season = shownNumber(season.number);
      episode.show = show.name;
      episode.showID = show.id;
      episodes.push_back(std::move(episode));
    }
  }
  return episodes;
}

}  // namespace vantor
