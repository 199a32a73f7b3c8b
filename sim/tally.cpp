#include "sim/tally.h"

#include <algorithm>
#include <utility>

namespace sim {
namespace {

// A thread may take its time to notice that its client has gone.
int present(const std::set<const Connection*>& connections) {
  return static_cast<int>(std::ranges::count_if(
      connections, [](const Connection* connection) { return !connection->isLeft(); }));
}

}  // namespace

Tally::Answering::Answering(Tally& tally, std::string action, const Request& request,
                            const Connection* stream)
    : tally_(tally), action_(std::move(action)), stream_(stream) {
  const std::lock_guard lock(tally_.mutex_);
  auto& counters = tally_.counters_;
  ++counters.requests[action_];
  counters.lastTarget[action_] = request.target;
  counters.targets[action_].insert(request.target);
  counters.userAgents.insert(request.header("user-agent"));
  auto& most = counters.mostAtOnce[action_];
  most = std::max(most, ++tally_.answering_[action_]);
  if (stream_) {
    tally_.pieces_.insert(stream_);
    counters.mostStreamsAtOnce = std::max(counters.mostStreamsAtOnce, present(tally_.pieces_));
  }
  tally_.changed_.notify_all();
}

Tally::Answering::~Answering() {
  const std::lock_guard lock(tally_.mutex_);
  --tally_.answering_[action_];
  tally_.pieces_.erase(stream_);
}

Tally::Streaming::Streaming(Tally& tally, const Connection& connection)
    : tally_(tally), connection_(connection) {
  const std::lock_guard lock(tally_.mutex_);
  ++tally_.counters_.streamsOpen;
  tally_.streams_.insert(&connection_);
  count_ = present(tally_.streams_);
}

Tally::Streaming::~Streaming() {
  const std::lock_guard lock(tally_.mutex_);
  tally_.streams_.erase(&connection_);
  --tally_.counters_.streamsOpen;
}

void Tally::countStray() {
  const std::lock_guard lock(mutex_);
  ++counters_.strays;
}

int Tally::streamsOpen() const {
  const std::lock_guard lock(mutex_);
  return counters_.streamsOpen;
}

Counters Tally::counters() const {
  const std::lock_guard lock(mutex_);
  return counters_;
}

void Tally::reset() {
  const std::lock_guard lock(mutex_);
  const int open = counters_.streamsOpen;
  counters_ = {};
  counters_.streamsOpen = open;
}

bool Tally::waitForRequests(const std::string& action, int count,
                            std::chrono::milliseconds timeout) const {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, timeout, [&] {
    const auto found = counters_.requests.find(action);
    return (found == counters_.requests.end() ? 0 : found->second) >= count;
  });
}

}  // namespace sim
