#pragma once

#include <QtGlobal>

namespace vantor::test {

/// The number in the environment variable `name`; `usual` when there is none.
inline int environmentNumber(const char* name, int usual) {
  bool isNumber = false;
  const int number = qEnvironmentVariableIntValue(name, &isNumber);
  return isNumber ? number : usual;
}

}  // namespace vantor::test
