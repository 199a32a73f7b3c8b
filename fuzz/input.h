#pragma once

#include <QByteArray>
#include <cstdint>

#include "json/json_reading.h"
#include "platform/app_error.h"

namespace vantor {

inline QByteArray inputBytes(const std::uint8_t* data, std::size_t size) {
  return QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

/// Runs a parser that may refuse its input with a failure of the program's own; any other is a
/// fault.
template <class Parse>
void mayRefuse(Parse parse) {
  try {
    parse();
  } catch (const AppError&) {
  } catch (const JSONError&) {
  }
}

/// Ends the run when a property does not hold.
inline void mustHold(bool property) {
  if (!property) __builtin_trap();
}

}  // namespace vantor
