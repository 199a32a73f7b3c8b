#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractItemModel>

#include "core/browsing.h"
#include "platform/announcements.h"
#include "ui/channels/guide_list_model.h"
#include "ui/channels/shown_programmes.h"
#include "ui/entries/item_list_model.h"

namespace vantor {

class AppModel;
class Zapping;

/// The list of channels over the picture, from when it is opened until it is put away. It is
/// browsed by itself: the section under the picture stays as it is. Main thread only.
class ChannelChooser final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT)
  Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged)
  Q_PROPERTY(QString group READ group NOTIFY groupChanged)

 public:
  /// Opens on the channel that plays, in the group and search where it was found if these are
  /// browsed still, else among all. What is passed outlives it.
  ChannelChooser(AppModel& model, Zapping& zapping, Clock& clock);

  /// The channels as `GuideListModel` has them.
  QAbstractItemModel* rows() { return &rows_; }
  /// The highlighted row, -1 without one.
  int currentRow() const { return items_.currentRow(); }
  /// The name of the shown group, with the search in it.
  QString group() const;

  /// A key, as Qt names it: moves the highlight, goes to the next group, chooses. Whether it means
  /// something here.
  bool press(int key);
  /// Goes on by so many groups, round and round.
  Q_INVOKABLE void changeGroup(int by);
  /// Goes to the channel of a row, and is done.
  Q_INVOKABLE void choose(int row);
  /// The rows on screen, first to last, both included.
  Q_INVOKABLE void showRows(int first, int last);

 Q_SIGNALS:
  void currentRowChanged();
  void groupChanged();
  void done();

 private:
  /// False when it does not have the channel that plays.
  bool begin(const QString& category, const QString& search);
  void highlight(int row);
  void onCatalogsChanged();

  AppModel& model_;
  Zapping& zapping_;
  Announcements announcements_;
  Browsing browsing_;
  ItemListModel items_;
  GuideListModel rows_;
  ShownProgrammes shown_;
  int page_ = 1;  // rows on screen
};

}  // namespace vantor
