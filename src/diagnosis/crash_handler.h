#pragma once

#include <QByteArray>
#include <QString>

namespace vantor {

/// From now on a fault of any thread, an abort or an exception that nobody catches leaves `file`,
/// readable by its owner only: `about`, and the calls that led there as modules and offsets.
/// Nothing of what is in memory gets into it, such as an exception's text. Then the process ends as
/// it would have ended.
///
/// The file, and the last folder of its path, are made only then. The stack of the main thread may
/// have overflown, no other's. Once per process, on the main thread.
void reportCrashes(const QString& file, const QByteArray& about);

}  // namespace vantor
