#include "platform/worker.h"

namespace vantor {

Worker::Worker(int threads) {
  pool_.setMaxThreadCount(threads);
  pool_.setExpiryTimeout(30'000);
}

Worker::~Worker() {
  pool_.clear();
  pool_.waitForDone();
}

void Worker::post(std::function<void()> work) {
  pool_.start(std::move(work));
}

}  // namespace vantor
