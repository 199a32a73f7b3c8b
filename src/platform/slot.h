#pragma once

namespace vantor {

/// One of a limited number of places, taken for as long as it lives. Main thread only.
class Slot {
 public:
  /// `taken` counts the places in use and outlives the slot.
  explicit Slot(int& taken) : taken_(taken) { ++taken_; }
  ~Slot() { --taken_; }
  Slot(const Slot&) = delete;
  Slot& operator=(const Slot&) = delete;

 private:
  int& taken_;
};

}  // namespace vantor
