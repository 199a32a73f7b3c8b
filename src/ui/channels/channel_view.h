#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QStringList>

#include "platform/clock.h"
#include "ui/channels/guide_list_model.h"
#include "ui/channels/shown_programmes.h"

namespace vantor {

class AppModel;
class ChannelGroups;
class ItemListModel;

/// The channel guide: its rows, the groups of channels, and the selected channel's programme.
/// Main thread only.
class ChannelView final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)
  Q_PROPERTY(QStringList groups READ groups NOTIFY groupsChanged)
  Q_PROPERTY(int group READ group NOTIFY groupChanged)
  Q_PROPERTY(QString groupName READ groupName NOTIFY groupChanged)
  Q_PROPERTY(QString channelName READ channelName NOTIFY programmeChanged)
  Q_PROPERTY(QString programmeTitle READ programmeTitle NOTIFY programmeChanged)
  Q_PROPERTY(QString programmeTimes READ programmeTimes NOTIFY programmeChanged)
  Q_PROPERTY(QString programmeDescription READ programmeDescription NOTIFY programmeChanged)
  Q_PROPERTY(QString programmeHint READ programmeHint NOTIFY programmeChanged)
  Q_PROPERTY(bool channelSelected READ channelSelected NOTIFY programmeChanged)
  Q_PROPERTY(QString bookmarkSymbol READ bookmarkSymbol NOTIFY programmeChanged)
  Q_PROPERTY(QString error READ error NOTIFY programmeChanged)

 public:
  ChannelView(AppModel& model, Clock& clock, ItemListModel& items, QObject* parent = nullptr);

  /// The channels as `ItemListModel` has them, with "nowText", "nextText" and "isOn"
  /// (whether "nowText" is a programme, and not why there is none).
  GuideListModel* rows() { return &rows_; }

  /// The choice of all channels, then every category's name.
  const QStringList& groups() const { return groups_; }
  int group() const;          // -1 when the category is none of the groups
  QString groupName() const;  // empty likewise
  Q_INVOKABLE void chooseGroup(int group);

  QString channelName() const;
  // Empty while nothing is known of a programme; then `programmeHint` says why.
  QString programmeTitle() const;
  QString programmeTimes() const;
  QString programmeDescription() const;
  QString programmeHint() const;
  bool channelSelected() const;
  QString bookmarkSymbol() const;
  QString error() const;  // empty: none
  Q_INVOKABLE void watch();
  Q_INVOKABLE void toggleBookmark();

  /// The rows on screen, first to last, both included; none when `last` is before `first`. Their
  /// programmes are fetched, and kept from running out while the rows stay there.
  Q_INVOKABLE void showRows(int first, int last) { shown_.show(first, last); }

 Q_SIGNALS:
  void groupsChanged();
  void groupChanged();
  void programmeChanged();

 private:
  std::optional<GuideEntry> programme() const;
  ChannelGroups channelGroups() const;
  void updateGroups();

  AppModel& model_;
  Clock& clock_;
  GuideListModel rows_;
  ShownProgrammes shown_;
  QStringList groups_;
};

}  // namespace vantor
