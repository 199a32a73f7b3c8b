#pragma once

#include <QString>
#include <QUuid>

namespace vantor {

/// 36 characters, upper case, hyphenated.
inline QString canonicalText(const QUuid& id) {
  return id.toString(QUuid::WithoutBraces).toUpper();
}

}  // namespace vantor
