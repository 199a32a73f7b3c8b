#include "platform/worker.h"

#include <sys/resource.h>
#include <unistd.h>

namespace vantor {

namespace {

// A tenth of what an equal would get.
constexpr int nicenessOfLittle = 10;

}  // namespace

Worker::Worker(int threads, Share share)
    : limit_(static_cast<std::size_t>(threads)), share_(share) {}

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
  // Linux has a nice value for each thread, against POSIX; see setpriority(2).
  if (share_ == Share::little)
    setpriority(PRIO_PROCESS, static_cast<id_t>(gettid()), nicenessOfLittle);
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
