#pragma once

#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <type_traits>
#include <vector>

#include "platform/promise.h"

namespace vantor {

/// Threads for work that takes processor time or blocks.
///
/// With one thread (the default) operations run one at a time, in the order of the calls. The
/// destructor waits for what runs and drops what has not begun, whose waits fail with `Cancelled`.
class Worker {
 public:
  /// Whether its threads get as much of a busy processor as others, or little.
  enum class Share { equal, little };

  explicit Worker(int threads = 1, Share share = Share::equal);
  ~Worker();
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// Runs `work` on a thread of this worker; its result or exception reaches the awaiting
  /// coroutine.
  template <class Work>
  auto run(Work work) {
    using Value = std::invoke_result_t<Work&>;
    using Result = std::conditional_t<std::is_void_v<Value>, Done, Value>;
    Pending<Result> pending;
    post([promise = std::make_shared<Promise<Result>>(pending), work = std::move(work)]() mutable {
      try {
        if constexpr (std::is_void_v<Value>) {
          work();
          promise->resolve({});
        } else {
          promise->resolve(work());
        }
      } catch (...) {
        promise->fail(std::current_exception());
      }
    });
    return pending;
  }

  /// Runs `work`, which throws nothing, with nobody waiting for it.
  void post(std::function<void()> work);

 private:
  void serve();

  const std::size_t limit_;
  const Share share_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> waiting_;
  std::size_t idle_ = 0;
  bool ending_ = false;
  std::vector<std::thread> threads_;  // started when first needed
};

}  // namespace vantor
