#include "app/crash_notice.h"

#include "core/app_model.h"
#include "diagnosis/crash_reports.h"
#include "diagnosis/report.h"
#include "platform/worker.h"

namespace vantor {

CrashNotice::CrashNotice(AppModel& model, Worker& worker, const QString& folder)
    : model_(model), worker_(worker) {
  connect(&model_, &AppModel::settled, this, &CrashNotice::tell);
  looking_ = Job::start(
      [self = QPointer(this), folder](std::stop_token stop) { return look(self, folder, stop); });
}

QCoro::Task<> CrashNotice::look(QPointer<CrashNotice> self, QString folder, std::stop_token stop) {
  const Pending<std::optional<QString>> looking =
      self->worker_.run([folder] { return crash_reports::lookThrough(folder); });
  std::optional<QString> report = co_await looking;
  if (!self || stop.stop_requested()) co_return;
  self->report_ = std::move(report);
  self->tell();
}

void CrashNotice::tell() {
  if (!report_ || model_.session().startingUp() || model_.showingConnect() || model_.notice())
    return;
  const QString report = *std::exchange(report_, std::nullopt);
  worker_.post([report] { crash_reports::markTold(report); });
  model_.tell(tr("Vantor Player ended unexpectedly. A report without names and addresses is in %1.")
                  .arg(withoutHome(crash_reports::nameOnceTold(report))));
}

}  // namespace vantor
