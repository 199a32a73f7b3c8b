#pragma once

#include <QByteArray>
#include <string>

#include "library/catalog.h"

namespace vantor {

/// The JSON text under which a catalogue is stored: "items", "categories" and "savedAt", a number
/// of seconds since 2001-01-01 00:00:00 UTC. Takes processor time: worker threads only.
class CatalogWriter {
 public:
  static std::string toJSON(const Catalog& catalog);
};

/// Strict: a missing required key or a value of the wrong type fails the whole with `JSONError`;
/// unknown keys are ignored.
Catalog catalogFromJSON(QByteArray json);

}  // namespace vantor
