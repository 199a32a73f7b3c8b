#pragma once

#include <QObject>
#include <QPointer>
#include <optional>

#include "platform/job.h"

namespace vantor {

class AppModel;
class Worker;

/// Tells once, as the model's notice, that the program ended unexpectedly and where its report is:
/// when the start-up is over, no sign-in sheet is open and nothing else is told. Main thread only.
class CrashNotice final : public QObject {
  Q_OBJECT

 public:
  /// `folder`: where the reports are.
  CrashNotice(AppModel& model, Worker& worker, const QString& folder);

 private:
  static QCoro::Task<> look(QPointer<CrashNotice> self, QString folder, std::stop_token stop);
  void tell();

  AppModel& model_;
  Worker& worker_;
  std::optional<QString> report_;
  Job looking_;
};

}  // namespace vantor
