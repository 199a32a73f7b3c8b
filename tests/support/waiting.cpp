#include "support/waiting.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>

namespace vantor::test {

namespace {

/// Counts the posted calls and deletions that arrive. Painting, which a window may post for ever,
/// is neither.
class Arrivals final : public QObject {
 public:
  Arrivals() { QCoreApplication::instance()->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::MetaCall || event->type() == QEvent::DeferredDelete) ++count;
    return false;
  }
  int count = 0;
};

}  // namespace

void settle() {
  Arrivals arrivals;
  // A resumed coroutine posts its next step, and a deletion may resume one.
  do {
    arrivals.count = 0;
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  } while (arrivals.count > 0);
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
