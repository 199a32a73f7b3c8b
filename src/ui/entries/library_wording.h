#pragma once

#include "library/library_kind.h"

namespace vantor {

QString title(LibraryKind kind);   // what a library is called
QString symbol(LibraryKind kind);  // the name of its icon

}  // namespace vantor
