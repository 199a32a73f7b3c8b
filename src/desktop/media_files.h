#pragma once

#include <QStringList>
#include <QUrl>
#include <optional>

namespace vantor {

/// The MIME types of files that the player opens, as its desktop entry has them.
QStringList mediaTypes();

/// The file of this machine that somebody means by `uri`; absent when it means anything else.
std::optional<QUrl> localFile(const QString& uri);

}  // namespace vantor
