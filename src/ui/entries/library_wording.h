#pragma once

#include "library/library_kind.h"

namespace vantor {

QString title(LibraryKind kind);   // what a library is called
QString symbol(LibraryKind kind);  // the name of its icon

/// What the category of the entries that were begun is called.
QString continueWatchingTitle();

}  // namespace vantor
