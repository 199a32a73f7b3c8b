#pragma once

#include <QByteArray>
#include <cstdint>
#include <exception>

namespace vantor {

inline QByteArray inputBytes(const std::uint8_t* data, std::size_t size) {
  return QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

/// Runs a parser that may refuse its input with any failure of its own; only a crash is a fault.
template <class Parse>
void mayRefuse(Parse parse) {
  try {
    parse();
  } catch (const std::exception&) {
  }
}

/// Ends the run when a property does not hold.
inline void mustHold(bool property) {
  if (!property) __builtin_trap();
}

}  // namespace vantor
