#pragma once

#include <QStringList>

namespace vantor {

/// Those of the writing systems in wide use for which this desktop has no font: names in them are
/// shown as boxes. The player's own symbols count as one.
QStringList writingSystemsWithoutFont();

}  // namespace vantor
