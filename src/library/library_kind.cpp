#include "library/library_kind.h"

namespace vantor {
namespace {

constexpr std::array<const char16_t*, 3> rawValues = {u"live", u"movies", u"shows"};

}  // namespace

QString rawValue(LibraryKind kind) {
  return QString::fromUtf16(rawValues.at(static_cast<std::size_t>(kind)));
}

std::optional<LibraryKind> libraryKind(QStringView raw) {
  for (const LibraryKind kind : allLibraryKinds)
    if (raw == rawValue(kind)) return kind;
  return std::nullopt;
}

}  // namespace vantor
