#include "library/media_item.h"

#include <array>

namespace vantor {

std::string_view idPrefix(LibraryKind kind) {
  constexpr std::array<std::string_view, allLibraryKinds.size()> prefixes = {
      "live:", "movies:", "shows:"};
  return prefixes.at(static_cast<std::size_t>(kind));
}

QString entryID(LibraryKind kind, QStringView providerID) {
  const std::string_view prefix = idPrefix(kind);
  return QString::fromLatin1(prefix.data(), static_cast<qsizetype>(prefix.size()))
      .append(providerID);
}

}  // namespace vantor
