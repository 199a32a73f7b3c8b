#include "sim/script.h"

#include <utility>

namespace sim {
namespace {

template <typename Map>
auto findAction(const Map& map, const std::string& action) {
  const auto exact = map.find(action);
  return exact != map.end() ? exact : map.find("*");
}

}  // namespace

void Script::setFault(const std::string& action, Fault fault) {
  const std::lock_guard lock(mutex_);
  faults_[action] = fault;
}

void Script::setBody(const std::string& action, Response response) {
  const std::lock_guard lock(mutex_);
  bodies_[action] = std::move(response);
}

void Script::hold(const std::string& action) {
  const std::lock_guard lock(mutex_);
  held_.insert(action);
}

void Script::release(const std::string& action) {
  const std::lock_guard lock(mutex_);
  held_.erase(action);
}

void Script::reset() {
  const std::lock_guard lock(mutex_);
  faults_.clear();
  bodies_.clear();
}

Fault Script::fault(const std::vector<std::string>& actions) const {
  const std::lock_guard lock(mutex_);
  for (const auto& action : actions) {
    const auto found = faults_.find(action);
    if (found != faults_.end()) return found->second;
  }
  return Fault::none;
}

std::optional<Response> Script::body(const std::string& action) const {
  const std::lock_guard lock(mutex_);
  const auto found = findAction(bodies_, action);
  if (found == bodies_.end()) return std::nullopt;
  return found->second;
}

bool Script::isHeld(const std::string& action) const {
  const std::lock_guard lock(mutex_);
  return held_.contains(action) || held_.contains("*");
}

}  // namespace sim
