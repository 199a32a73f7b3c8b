#pragma once

#include <QByteArray>

#include "provider/catalog.h"

namespace vantor {

/// Reads a provider's answers to the entries and the categories request of `kind`. Fails with
/// `JSONError` when one is not JSON and with an `AppError` when one is not an array of objects;
/// rows without an id, or with one met before, are skipped. Takes processor time: worker threads
/// only.
Catalog parseCatalog(QByteArray entries, QByteArray categories, LibraryKind kind,
                     Catalog::Time now);

}  // namespace vantor
