#pragma once

#include <exception>
#include <optional>
#include <stdexcept>

#include "platform/job.h"
#include "support/waiting.h"

namespace vantor::test {

template <class T, class Awaitable>
QCoro::Task<> collectResult(std::stop_token, std::shared_ptr<Awaitable> awaitable,
                            std::optional<T>* result, std::exception_ptr* failure) {
  try {
    T value = co_await *awaitable;
    *result = std::move(value);
  } catch (...) {
    *failure = std::current_exception();
  }
}

/// Runs the event loop until `awaitable` ends; returns its value or throws its failure.
template <class T, class Awaitable>
T awaited(Awaitable awaitable) {
  auto shared = std::make_shared<Awaitable>(std::move(awaitable));
  std::optional<T> result;
  std::exception_ptr failure;
  const Job job = Job::start([&](std::stop_token token) {
    return collectResult<T, Awaitable>(token, shared, &result, &failure);
  });
  if (!eventually([&] { return !job.running(); }))
    throw std::runtime_error("the operation did not end");
  if (failure) std::rethrow_exception(failure);
  return std::move(*result);
}

}  // namespace vantor::test
