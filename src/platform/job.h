#pragma once

#include <QCoroTask>
#include <functional>
#include <memory>
#include <stop_token>

namespace vantor {

/// Handle of a coroutine of the main thread that runs on its own.
///
/// The body starts from the event loop, never inside `start`, so that the handle is stored before
/// the body looks for it. Dropping the handle does not cancel the job. The body receives a stop
/// token that it passes to everything it awaits; whatever it throws ends the job quietly, so a body
/// reports its failures itself.
class Job {
 public:
  using Body = std::function<QCoro::Task<>(std::stop_token)>;

  Job() = default;
  static Job start(Body body);

  /// Requests the stop; a second call, or one after the end, has no effect.
  void cancel();
  bool running() const;

 private:
  struct State {
    std::stop_source source;
    bool finished = false;
  };
  static QCoro::Task<> drive(std::shared_ptr<State> state, Body body);

  std::shared_ptr<State> state_;
};

}  // namespace vantor
