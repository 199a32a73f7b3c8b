#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>
#include <vector>

#include "library/media_item.h"

namespace vantor {

class AppModel;

/// The episodes of the opened show, of one season or of all, and what is said in place of them.
/// Main thread only.
class EpisodeListModel final : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  /// Where the list of episodes stands; the first row once they are others.
  Q_PROPERTY(int currentRow MEMBER currentRow_)
  Q_PROPERTY(QStringList seasons READ seasons NOTIFY seasonsChanged)
  Q_PROPERTY(int seasonRow READ seasonRow NOTIFY seasonRowChanged)
  Q_PROPERTY(QString progress READ progress NOTIFY statusChanged)
  Q_PROPERTY(QString error READ error NOTIFY statusChanged)
  Q_PROPERTY(QString emptyNote READ emptyNote NOTIFY statusChanged)

 public:
  enum Role { LabelRole = Qt::UserRole + 1, NameRole, IsPlayingRole };

  explicit EpisodeListModel(AppModel& model, QObject* parent = nullptr);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  /// The choices of season: all of them first, then each that has a number, rising.
  QStringList seasons() const;
  int seasonRow() const;
  Q_INVOKABLE void chooseSeason(int row);
  Q_INVOKABLE void play(int row);

  // Empty: nothing to say.
  QString progress() const;
  QString error() const;
  QString emptyNote() const;

 Q_SIGNALS:
  void seasonsChanged();
  void seasonRowChanged();
  void statusChanged();

 private:
  void readEpisodes();
  void filter();
  void updatePlaying();

  AppModel& model_;
  QList<MediaItem> episodes_;
  std::vector<int> seasonNumbers_;  // rising
  std::vector<int> shown_;          // positions in episodes_
  int currentRow_ = 0;
};

}  // namespace vantor
