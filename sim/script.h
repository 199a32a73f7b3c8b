#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "sim/fault.h"
#include "sim/http.h"

namespace sim {

// What tests and people asked each action to do. Safe from any thread.
class Script {
 public:
  void setFault(const std::string& action, Fault fault);
  void setBody(const std::string& action, Response response);
  void breakOff(const std::string& action, BreakOff how);
  void hold(const std::string& action);
  void release(const std::string& action);
  void reset();

  // Of the first of these that has one.
  Fault fault(const std::vector<std::string>& actions) const;
  std::optional<BreakOff> breakOff(const std::vector<std::string>& actions) const;
  std::optional<Response> body(const std::string& action) const;
  bool isHeld(const std::string& action) const;

 private:
  mutable std::mutex mutex_;
  std::map<std::string, Fault> faults_;
  std::map<std::string, Response> bodies_;
  std::map<std::string, BreakOff> breakOffs_;
  std::set<std::string> held_;
};

}  // namespace sim
