#pragma once

#include <QCoroTask>
#include <functional>
#include <memory>
#include <stop_token>

namespace vantor {

/// Owner of a coroutine of the main thread that runs on its own.
///
/// The body starts from the event loop, never inside `start`, so that the handle is stored before
/// the body looks for it. Dropping the handle, or giving it another job, cancels: a stop is
/// requested through the token that the body passes to everything it awaits. Whatever the body
/// throws ends the job quietly, so a body reports its failures itself.
class Job {
 public:
  using Body = std::function<QCoro::Task<>(std::stop_token)>;

  Job() = default;
  ~Job() { cancel(); }
  Job(Job&&) = default;
  Job& operator=(Job&& other) noexcept;

  static Job start(Body body);

  /// Requests the stop; a second call, or one after the end, has no effect.
  void cancel();
  /// Lets the job go on without its handle.
  void detach() { state_.reset(); }
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
