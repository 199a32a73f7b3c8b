#include "sim/script.h"

#include <utility>

namespace sim {
namespace {

// Of the first of the actions that has one.
template <typename Value>
std::optional<Value> valueOf(const std::map<std::string, Value>& map,
                             const std::vector<std::string>& actions) {
  for (const auto& action : actions) {
    if (const auto found = map.find(action); found != map.end()) return found->second;
  }
  return std::nullopt;
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

void Script::breakOff(const std::string& action, BreakOff how) {
  const std::lock_guard lock(mutex_);
  breakOffs_.insert_or_assign(action, how);
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
  breakOffs_.clear();
}

Fault Script::fault(const std::vector<std::string>& actions) const {
  const std::lock_guard lock(mutex_);
  return valueOf(faults_, actions).value_or(Fault::none);
}

std::optional<BreakOff> Script::breakOff(const std::vector<std::string>& actions) const {
  const std::lock_guard lock(mutex_);
  return valueOf(breakOffs_, actions);
}

std::optional<Response> Script::body(const std::string& action) const {
  const std::lock_guard lock(mutex_);
  return valueOf(bodies_, {action, "*"});
}

bool Script::isHeld(const std::string& action) const {
  const std::lock_guard lock(mutex_);
  return held_.contains(action) || held_.contains("*");
}

}  // namespace sim
