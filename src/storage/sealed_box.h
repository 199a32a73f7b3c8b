#pragma once

#include <QByteArray>
#include <stdexcept>
#include <string>

namespace vantor {

/// AES-256-GCM (NIST SP 800-38D) in combined form: 12 bytes of nonce, the ciphertext, 16 bytes of
/// tag; no additional data.
namespace sealed_box {

inline constexpr qsizetype keySize = 32;    // bytes
inline constexpr qsizetype nonceSize = 12;  // bytes
inline constexpr qsizetype tagSize = 16;    // bytes

struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

QByteArray randomBytes(qsizetype count);

/// A fresh random nonce for every box. In the plaintext's own memory when that has room for nonce
/// and tag.
std::string seal(std::string plaintext, const QByteArray& key);

/// The plaintext; fails when the box is too short, altered or made under another key.
QByteArray open(QByteArray box, const QByteArray& key);

}  // namespace sealed_box
}  // namespace vantor
