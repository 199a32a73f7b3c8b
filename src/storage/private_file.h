#pragma once

#include <QByteArray>
#include <QString>
#include <system_error>

namespace vantor {

/// Files that only their owner may read. Calls block; failures are `std::system_error`.
namespace private_file {

QByteArray read(const QString& path);

/// Replaces the whole content at once, with the mode 0600: a reader, or a run after a crash or a
/// full disk, finds the old bytes or the new, never a part. The new ones outlast a power cut once
/// it returns.
void replace(const QString& path, QByteArrayView content);

/// Adds to the end of the file, made with the mode 0600 when there is none.
void append(const QString& path, const QByteArray& content);

/// Removes the file and what an interrupted `replace` of it left behind; an absent file is no
/// error.
void remove(const QString& path);

}  // namespace private_file
}  // namespace vantor
