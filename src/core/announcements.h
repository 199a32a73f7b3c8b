#pragma once

#include <QPointer>
#include <QString>
#include <algorithm>
#include <bitset>
#include <span>
#include <utility>
#include <vector>

namespace vantor {

/// Tells of an object's changes once they are whole.
///
/// Within a scope changes are only noted; the end of the outermost scope emits each signal once, in
/// the one order that the object gives, then those that name a key, then `settled`. What a listener
/// changes meanwhile follows in a round of its own, so that no listener hears of things out of
/// order. Main thread only.
template <class Object>
class Announcements {
 public:
  using Signal = void (Object::*)();
  using KeyedSignal = void (Object::*)(const QString&);

  Announcements(Object& object, std::span<const Signal> order, Signal settled)
      : object_(object), order_(order), settled_(settled) {}

  class Scope {
   public:
    explicit Scope(Announcements& announcements) : announcements_(announcements) {
      ++announcements_.depth_;
    }
    ~Scope() {
      if (--announcements_.depth_ == 0) announcements_.announce();
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    Announcements& announcements_;
  };

  /// Notes a change within a scope. The signal is one of the order.
  void note(Signal signal) {
    const auto at = std::find(order_.begin(), order_.end(), signal);
    Q_ASSERT(depth_ > 0 && at != order_.end());
    noted_.set(static_cast<std::size_t>(at - order_.begin()));
  }
  void note(KeyedSignal signal, const QString& key) {
    Q_ASSERT(depth_ > 0);
    const auto change = std::pair(signal, key);
    if (std::find(keyed_.begin(), keyed_.end(), change) == keyed_.end()) keyed_.push_back(change);
  }

 private:
  static constexpr std::size_t capacity = 32;

  void announce() {
    if (announcing_) return;
    const QPointer<Object> alive(&object_);
    announcing_ = true;
    while (noted_.any() || !keyed_.empty()) {
      const auto noted = std::exchange(noted_, {});
      const auto keyed = std::exchange(keyed_, {});
      for (std::size_t i = 0; i < order_.size() && alive; ++i)
        if (noted[i]) Q_EMIT(object_.*order_[i])();
      for (const auto& [signal, key] : keyed)
        if (alive) Q_EMIT(object_.*signal)(key);
      if (alive) Q_EMIT(object_.*settled_)();
      if (!alive) return;
    }
    announcing_ = false;
  }

  Object& object_;
  const std::span<const Signal> order_;
  const Signal settled_;
  int depth_ = 0;
  bool announcing_ = false;
  std::bitset<capacity> noted_;
  std::vector<std::pair<KeyedSignal, QString>> keyed_;
};

}  // namespace vantor
