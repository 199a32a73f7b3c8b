#include "machines/stepped_worker.h"

#include <algorithm>

#include "platform/worker.h"

namespace vantor {
namespace {

struct Queue {
  const Worker* worker;
  std::size_t limit;
  std::deque<std::function<void()>> waiting;
  std::size_t ready() const { return std::min(limit, waiting.size()); }
};
std::vector<Queue> queues;

}  // namespace

Worker::Worker(int threads, Share share)
    : limit_(static_cast<std::size_t>(threads)), share_(share) {
  queues.push_back({this, limit_, {}});
}

Worker::~Worker() {
  const auto own = std::ranges::find(queues, this, &Queue::worker);
  const std::deque<std::function<void()>> dropped = std::move(own->waiting);
  queues.erase(own);
}

void Worker::post(std::function<void()> work) {
  std::ranges::find(queues, this, &Queue::worker)->waiting.push_back(std::move(work));
}

namespace machine {

std::size_t readyWork() {
  std::size_t ready = 0;
  for (const Queue& queue : queues) ready += queue.ready();
  return ready;
}

void doWork(std::size_t number) {
  for (Queue& queue : queues) {
    if (number >= queue.ready()) {
      number -= queue.ready();
      continue;
    }
    const auto chosen = queue.waiting.begin() + static_cast<std::ptrdiff_t>(number);
    const std::function<void()> work = std::move(*chosen);
    queue.waiting.erase(chosen);
    return work();
  }
}

}  // namespace machine
}  // namespace vantor
