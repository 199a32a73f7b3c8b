#include "library/media_item.h"

namespace vantor {

QString entryID(LibraryKind kind, QStringView providerID) {
  return rawValue(kind).append(QLatin1Char(':')).append(providerID);
}

}  // namespace vantor
