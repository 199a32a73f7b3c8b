#pragma once

#include <coroutine>
#include <exception>
#include <memory>
#include <optional>
#include <utility>
#include <variant>

#include "platform/mailbox.h"

namespace vantor {

/// The result of an operation that yields no value.
using Done = std::monostate;

/// One result that arrives later: awaited at most once, by a coroutine of the main thread.
///
/// Copies share the result. `resolve` and `fail` may be called from any thread; the first call
/// counts, later ones change nothing. The waiting coroutine always resumes from the main thread's
/// event loop, never inside the call that settles the result. Await a named object only
/// (`co_await name;`): GCC 12 destroys temporaries in awaited expressions twice (PR 107288).
template <class T>
class Pending {
  struct State {
    std::variant<std::monostate, std::optional<T>, std::exception_ptr> result;
    std::coroutine_handle<> waiter;
  };

  struct Awaiter {
    State* state;
    bool await_ready() const noexcept { return state->result.index() != 0; }
    void await_suspend(std::coroutine_handle<> handle) const noexcept { state->waiter = handle; }
    T await_resume() const {
      if (auto* error = std::get_if<std::exception_ptr>(&state->result))
        std::rethrow_exception(*error);
      return std::move(*std::get<1>(state->result));
    }
  };

 public:
  Pending() : state_(std::make_shared<State>()) {}

  void resolve(T value) const { settle(std::optional<T>(std::move(value))); }
  void fail(std::exception_ptr error) const { settle(std::move(error)); }

  Awaiter operator co_await() const noexcept { return Awaiter{state_.get()}; }

 private:
  template <class Result>
  void settle(Result result) const {
    // A function object must be copyable, a result need not be.
    auto boxed = std::make_shared<Result>(std::move(result));
    Mailbox::postToMain([state = state_, boxed] {
      if (state->result.index() != 0) return;
      state->result = std::move(*boxed);
      if (auto waiter = std::exchange(state->waiter, {})) waiter.resume();
    });
  }

  std::shared_ptr<State> state_;
};

}  // namespace vantor
