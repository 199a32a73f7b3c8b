#pragma once

#include <QString>

namespace vantor::test {

/// Whether Qt says this of its own and nothing comes of it: a list is reset while it prepares a row
/// beyond its end, the renderer has a clock of its own, which it stops once too often when a
/// window goes.
inline bool isHarmless(const QString& message) {
  using namespace Qt::StringLiterals;
  for (const auto begin : {"DelegateModel::cancel"_L1, "QUnifiedTimer: animation driver"_L1,
                           "QUnifiedTimer::stopAnimationDriver"_L1})
    if (message.startsWith(begin)) return true;
  return false;
}

}  // namespace vantor::test
