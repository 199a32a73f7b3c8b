#pragma once

#include <QByteArray>
#include <QUrl>

namespace vantor {

/// Whether a redirect may be followed: its target has the scheme, host and port of `original`, all
/// compared as texts, so that an explicit default port differs from an omitted one. `location` is
/// the header as the server sent it; one without an authority stays on the server.
bool redirectIsAllowed(const QUrl& original, const QByteArray& location);

}  // namespace vantor
