#pragma once

#include <QObject>
#include <deque>
#include <functional>
#include <mutex>

namespace vantor {

/// Carries calls to the event loop of the thread it lives on, in their order.
///
/// The calls cross under a mutex of ours; Qt's own queue only wakes the receiver. So what a caller
/// wrote is ordered before the call in a way that ThreadSanitizer, which cannot look into Qt, sees.
class Mailbox : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;
  ~Mailbox() override;

  /// From any thread.
  void post(std::function<void()> call);

  /// That of the main thread.
  static void postToMain(std::function<void()> call);

 private:
  Q_INVOKABLE void deliver();

  std::mutex mutex_;
  std::deque<std::function<void()>> calls_;
};

}  // namespace vantor
