#include "support/waiting.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>

namespace vantor::test {

void settle() {
  // A resumed coroutine posts its next step, so one pass is not enough.
  for (int pass = 0; pass < 40; ++pass) {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

bool eventually(const std::function<bool()>& condition) {
  QElapsedTimer timer;
  timer.start();
  while (!condition()) {
    if (timer.hasExpired(30'000)) return false;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  return true;
}

}  // namespace vantor::test
