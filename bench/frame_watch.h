#pragma once

#include <pthread.h>

#include <QElapsedTimer>
#include <QQuickWindow>
#include <QTest>
#include <atomic>
#include <ctime>

#include "measure.h"

namespace vantor::bench {

constexpr double frameTime = 16.7;  // milliseconds, of 60 a second

/// Measures what single frames of a window take.
class FrameWatch {
 public:
  using Milliseconds = Times::Milliseconds;

  struct Frame {
    Milliseconds prepared{0};  // on the main thread, with the action that led to it
    Milliseconds busy{0};      // processor time of the same, which nothing beside it makes longer
    Milliseconds drawn{0};
    bool shown = false;
  };

  explicit FrameWatch(QQuickWindow& window) {
    timer_.start();
    pthread_getcpuclockid(pthread_self(), &mainClock_);
    const auto on = [&](auto signal, auto action) {
      QObject::connect(&window, signal, &context_, action, Qt::DirectConnection);
    };
    on(&QQuickWindow::afterAnimating, [this] { begun_ = timer_.nsecsElapsed(); });
    on(&QQuickWindow::afterSynchronizing, [this] {
      handingOver_ = timer_.nsecsElapsed() - begun_;
      mainBusy_ = processorTime(mainClock_);
      syncBusy_ = processorTime(CLOCK_THREAD_CPUTIME_ID) - syncBegun_;
      begun_ = timer_.nsecsElapsed();
      ++synchronized_;
    });
    on(&QQuickWindow::beforeSynchronizing,
       [this] { syncBegun_ = processorTime(CLOCK_THREAD_CPUTIME_ID); });
    on(&QQuickWindow::afterRendering, [this] { drawing_ = timer_.nsecsElapsed() - begun_; });
    on(&QQuickWindow::frameSwapped, [this] { shown_ = synchronized_.load(); });
  }

  /// Does `action` and waits so long for the frame after it.
  template <class Action>
  Frame after(Action action, int milliseconds) {
    // Nothing is handed over while the main thread is here; what was may be shown only now.
    const int before = synchronized_;
    const qint64 start = timer_.nsecsElapsed();
    const qint64 busy = processorTime(mainClock_);
    action();
    const qint64 acted = timer_.nsecsElapsed() - start;
    Frame frame;
    frame.shown = QTest::qWaitFor([&] { return shown_ > before; }, milliseconds);
    frame.prepared = time(acted + (frame.shown ? handingOver_.load() : 0));
    frame.busy = time(frame.shown ? mainBusy_ - busy + syncBusy_ : 0);
    frame.drawn = time(frame.shown ? drawing_.load() : 0);
    return frame;
  }

 private:
  static Milliseconds time(qint64 nanoseconds) {
    return Milliseconds(static_cast<double>(nanoseconds) / 1e6);
  }

  static qint64 processorTime(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
  }

  QObject context_;
  QElapsedTimer timer_;
  std::atomic<qint64> begun_ = 0;
  std::atomic<qint64> handingOver_ = 0;
  std::atomic<qint64> drawing_ = 0;
  std::atomic<qint64> syncBegun_ = 0;
  std::atomic<qint64> mainBusy_ = 0;
  std::atomic<qint64> syncBusy_ = 0;
  clockid_t mainClock_ = 0;
  std::atomic<int> synchronized_ = 0;  // frames handed over
  std::atomic<int> shown_ = 0;         // of these
};

}  // namespace vantor::bench
