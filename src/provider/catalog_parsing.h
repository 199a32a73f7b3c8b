#pragma once

#include <QByteArray>
#include <memory>
#include <stop_token>

#include "library/catalog.h"

namespace vantor {

class CatalogBuilder;

/// Categories of a library that are kept, several times what the largest providers have.
inline constexpr std::size_t mostCategories = 5'000;

/// Reads a provider's answers to the entries and the categories request of `kind`. Fails with
/// `JSONError` when one is not JSON, with an `AppError` when one is not an array of objects, with
/// `Cancelled` soon after `stop` is requested; rows without an id, or with one met before, are
/// skipped, categories beyond `mostCategories` left out. Takes processor time: worker threads only.
Catalog parseCatalog(QByteArray entries, QByteArray categories, LibraryKind kind, Catalog::Time now,
                     const std::stop_token& stop = {});

/// The same in two steps, since the answers need not come together. The entries' answer is let go
/// when it has been read.
std::shared_ptr<CatalogBuilder> parseEntries(QByteArray entries, LibraryKind kind,
                                             const std::stop_token& stop);
/// Whether no category was left out.
bool parseCategories(QByteArray categories, CatalogBuilder& builder, const std::stop_token& stop);

}  // namespace vantor
