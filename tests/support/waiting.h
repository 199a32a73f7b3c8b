#pragma once

#include <QString>
#include <chrono>
#include <functional>

namespace vantor::test {

// Of every test.
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Delivers what is posted to the main thread, and what that posts, until no call and no deletion
/// is left.
void settle();

/// Declared first in a fixture, lets every cancelled job end before the next test.
struct Settled {
  ~Settled() { settle(); }
};

/// Lets the event loop run until `condition` holds; false when it still does not after a time so
/// long that only a fault explains it.
[[nodiscard]] bool eventually(const std::function<bool()>& condition);

}  // namespace vantor::test
