#pragma once

#include <QByteArray>
#include <memory>

namespace vantor {

/// For the header Accept-Encoding.
inline constexpr char acceptedEncodings[] = "gzip, deflate, br, zstd";

/// Unpacks a compressed body that arrives in pieces, at each call no further than there is room:
/// a few bytes can become gigabytes.
class Unpacking {
 public:
  /// `encoding`: a value of the header Content-Encoding. Null for one that is not accepted.
  static std::unique_ptr<Unpacking> of(const QByteArray& encoding);

  virtual ~Unpacking() = default;

  /// Takes from the front of `packed` and writes at most `size` bytes, returning their number, or
  /// -1 when the body is damaged. With less than `size`, all of `packed` has been taken.
  virtual qsizetype unpack(QByteArrayView& packed, char* room, qsizetype size) = 0;
  /// Whether the body is complete.
  virtual bool ended() const = 0;
};

}  // namespace vantor
