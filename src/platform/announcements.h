#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vantor {

/// Tells of the changes of several objects once they are whole.
///
/// Within a scope changes are only noted; the end of the outermost scope emits each signal once, in
/// the order in which they were added, then calls `settled`. What a listener changes meanwhile
/// follows in a round of its own, so that no listener hears of things out of order. Main thread
/// only; a listener may destroy all of it.
class Announcements {
 public:
  using Signal = std::function<void(const QString& key)>;

  explicit Announcements(std::function<void()> settled) : settled_(std::move(settled)) {}
  Announcements(const Announcements&) = delete;
  Announcements& operator=(const Announcements&) = delete;

  /// Around everything that changes more than one field.
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

  /// Adds a signal behind the others; the number by which it is noted.
  std::size_t add(Signal signal);
  /// Notes a change within a scope; a key names which one of many differs.
  void note(std::size_t number, const QString& key = {});

 private:
  void announce();

  const std::function<void()> settled_;
  const std::shared_ptr<char> life_ = std::make_shared<char>();
  std::vector<Signal> signals_;
  std::vector<std::pair<std::size_t, QString>> noted_;
  int depth_ = 0;
  bool announcing_ = false;
};

/// A signal of an object that is emitted when the change is whole.
class Announcement {
 public:
  template <class Owner>
  Announcement(Announcements& all, Owner& owner, void (Owner::*changed)())
      : all_(all), number_(all.add([&owner, changed](const QString&) { (owner.*changed)(); })) {}
  template <class Owner>
  Announcement(Announcements& all, Owner& owner, void (Owner::*changed)(const QString&))
      : all_(all),
        number_(all.add([&owner, changed](const QString& key) { (owner.*changed)(key); })) {}

  void note(const QString& key = {}) {
    const Announcements::Scope scope(all_);
    all_.note(number_, key);
  }

 private:
  Announcements& all_;
  const std::size_t number_;
};

/// A field with its signal, which comes when the value differs.
template <class T>
class Announced {
 public:
  template <class Owner>
  Announced(Announcements& all, Owner& owner, void (Owner::*changed)(), T value = T())
      : changed_(all, owner, changed), value_(std::move(value)) {}

  const T& get() const { return value_; }
  void set(T value) {
    if (value_ == value) return;
    value_ = std::move(value);
    changed_.note();
  }
  /// Sets what `edit` makes of the value.
  template <class Edit>
  void change(Edit edit) {
    T value = value_;
    edit(value);
    set(std::move(value));
  }

 private:
  Announcement changed_;
  T value_;
};

}  // namespace vantor
