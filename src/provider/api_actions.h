#pragma once

#include "library/library_kind.h"

namespace vantor {

/// The player API's action of a library's entries.
QString action(LibraryKind kind);
/// The player API's action of its categories.
QString categoryAction(LibraryKind kind);

}  // namespace vantor
