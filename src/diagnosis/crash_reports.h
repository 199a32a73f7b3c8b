#pragma once

#include <QStringList>
#include <optional>

namespace vantor {

/// The files that crashes leave in a folder, of which the last five are kept. Calls block.
namespace crash_reports {

/// Where a run that begins now would leave one.
QString ofThisRun(const QString& folder);

/// The names of all, the newest first.
QStringList namesIn(const QString& folder);

/// The newest that nobody was told of. Removes the oldest, and leaves the others untold for good.
std::optional<QString> lookThrough(const QString& folder);

/// The name of a report from when somebody is told of it on.
QString nameOnceTold(const QString& report);
/// Gives it that name.
void markTold(const QString& report);

}  // namespace crash_reports
}  // namespace vantor
