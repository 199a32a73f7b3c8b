#pragma once

#include <QObject>
#include <memory>

#include "platform/clock.h"

namespace vantor {

class Browsing;
class GuideListModel;
class ItemListModel;
class ProgrammeGuide;

/// Fetches the programmes of the channels that a list has on screen, and keeps them from running
/// out while their rows stay there. Main thread only; what is passed outlives it.
class ShownProgrammes final : public QObject {
  Q_OBJECT

 public:
  ShownProgrammes(ProgrammeGuide& guide, Clock& clock, const Browsing& browsing,
                  const ItemListModel& items, GuideListModel& rows);
  ~ShownProgrammes() override;

  /// The rows on screen, first to last, both included; none when `last` is before `first`.
  void show(int first, int last);

 Q_SIGNALS:
  /// Programmes may have begun or ended; the texts of the rows are read again.
  void minutePassed();

 private:
  void fetch(bool onlyRunningOut);
  void waitForNextMinute();

  ProgrammeGuide& guide_;
  Clock& clock_;
  const Browsing& browsing_;
  const ItemListModel& items_;
  GuideListModel& rows_;
  int first_ = 0;
  int last_ = -1;
  std::unique_ptr<Clock::Timer> nextMinute_;
};

}  // namespace vantor
