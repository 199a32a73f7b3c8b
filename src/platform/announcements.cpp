#include "platform/announcements.h"

#include <algorithm>

namespace vantor {

std::size_t Announcements::add(Signal signal) {
  signals_.push_back(std::move(signal));
  return signals_.size() - 1;
}

void Announcements::note(std::size_t number, const QString& key) {
  Q_ASSERT(depth_ > 0);
  const auto change = std::pair(number, key);
  if (std::find(noted_.begin(), noted_.end(), change) == noted_.end()) noted_.push_back(change);
}

void Announcements::announce() {
  if (announcing_ || noted_.empty()) return;
  const std::weak_ptr<char> alive = life_;
  announcing_ = true;
  while (!noted_.empty()) {
    auto round = std::exchange(noted_, {});
    std::stable_sort(round.begin(), round.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [number, key] : round) {
      signals_[number](key);
      if (alive.expired()) return;
    }
    settled_();
    if (alive.expired()) return;
  }
  announcing_ = false;
}

}  // namespace vantor
