#pragma once

#include <exception>
#include <stop_token>

namespace vantor {

/// The failure of an operation whose job was cancelled.
struct Cancelled : std::exception {
  const char* what() const noexcept override { return "cancelled"; }
};

inline void throwIfStopped(const std::stop_token& token) {
  if (token.stop_requested()) throw Cancelled();
}

}  // namespace vantor
