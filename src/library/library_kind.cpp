#include "library/library_kind.h"

namespace vantor {

QString rawValue(LibraryKind kind) {
  return textOf(kind, {u"live", u"movies", u"shows"});
}

QString textOf(LibraryKind kind, const LibraryTexts& texts) {
  return QString::fromUtf16(texts.at(static_cast<std::size_t>(kind)));
}

}  // namespace vantor
