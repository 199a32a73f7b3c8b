#pragma once

#include <QIdentityProxyModel>

#include "library/guide_entry.h"
#include "platform/clock.h"

namespace vantor {

class ProgrammeGuide;
class ItemListModel;

/// The rows of the entries with what each channel shows now and next. Main thread only.
class GuideListModel final : public QIdentityProxyModel {
  Q_OBJECT

 public:
  enum Role { NowTextRole = Qt::UserRole + 100, NextTextRole, IsOnRole };

  GuideListModel(const ProgrammeGuide& guide, const Clock& clock, ItemListModel& items,
                 QObject* parent = nullptr);

  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  /// Programmes end as time passes: the texts of every row are to be read again.
  void timePassed();

 private:
  GuideEntries upcoming(const QString& channelID) const;
  QString nowText(const QModelIndex& index) const;
  QString nextText(const QModelIndex& index) const;
  void updateTexts(int first, int last);
  void guideChanged(const QString& channelID);

  const ProgrammeGuide& guide_;
  const Clock& clock_;
  const ItemListModel& items_;
};

}  // namespace vantor
