#include "platform/worker.h"

namespace vantor {

Worker::Worker(int threads) : limit_(static_cast<std::size_t>(threads)) {}

Worker::~Worker() {
  std::deque<std::function<void()>> dropped;
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    dropped.swap(waiting_);
  }
  changed_.notify_all();
  dropped.clear();
  for (std::thread& thread : threads_) thread.join();
}

void Worker::post(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  waiting_.push_back(std::move(work));
  if (waiting_.size() > idle_ && threads_.size() < limit_)
    threads_.emplace_back([this] { serve(); });
  changed_.notify_one();
}

void Worker::serve() {
  std::unique_lock lock(mutex_);
  for (;;) {
    ++idle_;
    changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
    --idle_;
    if (ending_) return;
    std::function<void()> work = std::move(waiting_.front());
    waiting_.pop_front();
    lock.unlock();
    work();
    work = nullptr;
    lock.lock();
  }
}

}  // namespace vantor
