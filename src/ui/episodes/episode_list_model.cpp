#include "ui/episodes/episode_list_model.h"

#include <algorithm>
#include <set>

#include "core/app_model.h"
#include "playback/playback.h"
#include "ui/entries/shown_text.h"

namespace vantor {

EpisodeListModel::EpisodeListModel(AppModel& model, QObject* parent)
    : QAbstractListModel(parent), model_(model) {
  connect(&model.details(), &ShowDetails::episodesChanged, this, &EpisodeListModel::readEpisodes);
  connect(&model.browsing(), &Browsing::episodeSeasonChanged, this, &EpisodeListModel::filter);
  connect(&model.playback(), &Playback::sourceChanged, this, &EpisodeListModel::updatePlaying);
  for (const auto signal : {&ShowDetails::episodesChanged, &ShowDetails::detailsLoadingChanged,
                            &ShowDetails::detailsErrorChanged})
    connect(&model.details(), signal, this, &EpisodeListModel::statusChanged);
  connect(&model.session(), &Session::demoChanged, this, &EpisodeListModel::statusChanged);
  readEpisodes();
}

int EpisodeListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant EpisodeListModel::data(const QModelIndex& index, int role) const {
  if (index.row() < 0 || index.row() >= rowCount()) return {};
  const MediaItem& episode = episodes_[shown_[static_cast<std::size_t>(index.row())]];
  switch (role) {
    case LabelRole:
      return tr("S%1 · E%2").arg(episode.season.value_or(1)).arg(episode.episode.value_or(1));
    case NameRole:
      return oneLine(episode.name);
    case IsPlayingRole:
      return model_.playback().itemID() == episode.id;
    default:
      return {};
  }
}

QHash<int, QByteArray> EpisodeListModel::roleNames() const {
  return {{LabelRole, "label"}, {NameRole, "name"}, {IsPlayingRole, "isPlaying"}};
}

QStringList EpisodeListModel::seasons() const {
  QStringList names{tr("All seasons")};
  for (const int number : seasonNumbers_) names.append(tr("Season %1").arg(number));
  return names;
}

int EpisodeListModel::seasonRow() const {
  const auto chosen =
      std::find(seasonNumbers_.begin(), seasonNumbers_.end(), model_.browsing().episodeSeason());
  // A season 0 is named in the choices, but choosing it is choosing all of them.
  if (model_.browsing().episodeSeason() == 0 || chosen == seasonNumbers_.end()) return 0;
  return static_cast<int>(chosen - seasonNumbers_.begin()) + 1;
}

void EpisodeListModel::chooseSeason(int row) {
  if (row < 0 || row > static_cast<int>(seasonNumbers_.size())) return;
  model_.browsing().setEpisodeSeason(row == 0 ? 0
                                              : seasonNumbers_[static_cast<std::size_t>(row) - 1]);
  // Also when the season stays what it was: the picker has moved on its own.
  Q_EMIT seasonRowChanged();
}

void EpisodeListModel::play(int row) {
  if (row < 0 || row >= rowCount()) return;
  const MediaItem episode = episodes_[shown_[static_cast<std::size_t>(row)]];
  model_.play(episode);
}

QString EpisodeListModel::progress() const {
  return model_.details().detailsLoading() ? tr("Loading episodes…") : QString();
}

QString EpisodeListModel::error() const {
  return model_.details().detailsError().value_or(QString());
}

QString EpisodeListModel::emptyNote() const {
  if (!model_.details().episodes().isEmpty() || model_.details().detailsLoading()) return {};
  return model_.session().demo() ? tr("Connect your provider to load this show's episodes.")
                                 : tr("No episodes returned by this provider.");
}

void EpisodeListModel::readEpisodes() {
  episodes_ = model_.details().episodes();
  std::set<int> numbers;
  for (const MediaItem& episode : std::as_const(episodes_))
    if (episode.season) numbers.insert(*episode.season);
  seasonNumbers_.assign(numbers.begin(), numbers.end());
  Q_EMIT seasonsChanged();
  filter();
}

void EpisodeListModel::filter() {
  const int season = model_.browsing().episodeSeason();
  beginResetModel();
  currentRow_ = 0;
  shown_.clear();
  for (int i = 0; i < episodes_.size(); ++i)
    if (season == 0 || episodes_.at(i).season == season) shown_.push_back(i);
  endResetModel();
  Q_EMIT seasonRowChanged();
}

void EpisodeListModel::updatePlaying() {
  if (!shown_.empty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1), {IsPlayingRole});
}

}  // namespace vantor
