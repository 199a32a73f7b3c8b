#pragma once

#include <exception>
#include <optional>
#include <stdexcept>

#include "platform/cancelled.h"
#include "platform/job.h"
#include "support/waiting.h"

namespace vantor::test {

/// An operation that was begun, and what has come of it.
template <class T>
struct Started {
  Job job;
  bool over = false;
  bool cancelled = false;
  std::exception_ptr failure;
  std::optional<T> value;
};

template <class T, class Awaitable>
QCoro::Task<> follow(std::shared_ptr<Awaitable> awaitable, std::shared_ptr<Started<T>> started) {
  try {
    T value = co_await *awaitable;
    started->value = std::move(value);
  } catch (const Cancelled&) {
    started->cancelled = true;
    started->failure = std::current_exception();
  } catch (...) {
    started->failure = std::current_exception();
  }
  started->over = true;
}

/// Begins what `begin` makes of its token, from the event loop.
template <class T, class Begin>
std::shared_ptr<Started<T>> start(Begin begin) {
  auto started = std::make_shared<Started<T>>();
  started->job = Job::start([begin = std::move(begin), started](std::stop_token token) {
    auto awaitable = std::make_shared<decltype(begin(token))>(begin(token));
    return follow(std::move(awaitable), started);
  });
  settle();
  return started;
}

/// Runs the event loop until `awaitable` ends; returns its value or throws its failure.
template <class T, class Awaitable>
T awaited(Awaitable awaitable) {
  auto shared = std::make_shared<Awaitable>(std::move(awaitable));
  const auto started = std::make_shared<Started<T>>();
  started->job = Job::start([&](std::stop_token) { return follow(shared, started); });
  if (!eventually([&] { return started->over; }))
    throw std::runtime_error("the operation did not end");
  if (started->failure) std::rethrow_exception(started->failure);
  return std::move(*started->value);
}

}  // namespace vantor::test
