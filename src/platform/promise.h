#pragma once

#include <exception>
#include <utility>

#include "platform/cancelled.h"
#include "platform/pending.h"

namespace vantor {

/// The duty to settle a result. One that goes without having done so fails the wait as cancelled:
/// a coroutine that nothing resumes would stay for ever, and all that it holds.
template <class T>
class Promise {
 public:
  explicit Promise(Pending<T> result) : result_(std::move(result)) {}
  ~Promise() {
    if (!settled_) result_.fail(std::make_exception_ptr(Cancelled()));
  }
  Promise(const Promise&) = delete;
  Promise& operator=(const Promise&) = delete;

  void resolve(T value) {
    settled_ = true;
    result_.resolve(std::move(value));
  }
  void fail(std::exception_ptr error) {
    settled_ = true;
    result_.fail(std::move(error));
  }

 private:
  const Pending<T> result_;
  bool settled_ = false;
};

}  // namespace vantor
