// Few bytes must not become much work or much memory. Both are compared with what harmless bytes of
// the same number take in the same run.
#pragma once

#include <QByteArray>
#include <cstdint>
#include <functional>
#include <map>

namespace vantor {

/// What a piece of work takes on this thread.
struct Cost {
  std::int64_t time = 0;    // of the processor, nanoseconds
  std::int64_t memory = 0;  // at its peak, bytes; 0 without AddressSanitizer, which counts them
};
Cost costOf(const std::function<void()>& work);

/// Harmless bytes for a parser: `head`, as many `row`s as fit, `tail`.
struct Harmless {
  QByteArray head, row, tail;
  QByteArray ofSize(qsizetype size) const;
};

class Yardstick {
 public:
  using Parse = std::function<void(const QByteArray&)>;
  Yardstick(Harmless harmless, Parse parse);
  /// For what is not made of rows; `harmless` makes input of about that size.
  Yardstick(std::function<QByteArray(qsizetype)> harmless, Parse parse);

  /// Parses `input`, and ends the run when that takes fifty times as long as it takes with harmless
  /// bytes of that size, or of `size` where it is the greater one. The memory that it took.
  std::int64_t measure(const QByteArray& input, qsizetype size = 0);

 private:
  std::int64_t quickest(const QByteArray& input) const;
  std::int64_t harmlessTime(qsizetype size);

  const std::function<QByteArray(qsizetype)> harmless_;
  const Parse parse_;
  std::map<qsizetype, std::int64_t> times_;  // by size, powers of two
};

}  // namespace vantor
