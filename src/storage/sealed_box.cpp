#include "storage/sealed_box.h"

#include <openssl/evp.h>
#include <openssl/rand.h>

#include <algorithm>
#include <memory>

namespace vantor::sealed_box {
namespace {

struct FreeContext {
  void operator()(EVP_CIPHER_CTX* context) const { EVP_CIPHER_CTX_free(context); }
};
using Context = std::unique_ptr<EVP_CIPHER_CTX, FreeContext>;

void require(bool succeeded, const char* what) {
  if (!succeeded) throw Failure(what);
}

unsigned char* bytes(char* data) {
  return reinterpret_cast<unsigned char*>(data);
}
const unsigned char* bytes(const char* data) {
  return reinterpret_cast<const unsigned char*>(data);
}

// EVP counts in int.
constexpr qsizetype pieceSize = 1 << 30;

template <class Update>
void inPieces(qsizetype size, Update update) {
  for (qsizetype offset = 0; offset < size; offset += pieceSize)
    require(update(offset, static_cast<int>(std::min(pieceSize, size - offset))), "cipher");
}

}  // namespace

QByteArray randomBytes(qsizetype count) {
  QByteArray random(count, Qt::Uninitialized);
  require(RAND_bytes(bytes(random.data()), static_cast<int>(count)) == 1, "random bytes");
  return random;
}

std::string seal(std::string plaintext, const QByteArray& key) {
  require(key.size() == keySize, "key size");
  const auto size = static_cast<qsizetype>(plaintext.size());
  std::string box = std::move(plaintext);
  box.insert(0, randomBytes(nonceSize).toStdString());
  box.append(tagSize, '\0');
  char* const cipher = box.data() + nonceSize;
  const Context context(EVP_CIPHER_CTX_new());
  require(context && EVP_EncryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr,
                                        bytes(key.constData()), bytes(box.data())) == 1,
          "cipher set-up");
  int written = 0;
  inPieces(size, [&](qsizetype offset, int length) {
    return EVP_EncryptUpdate(context.get(), bytes(cipher + offset), &written,
                             bytes(cipher + offset), length) == 1;
  });
  require(EVP_EncryptFinal_ex(context.get(), bytes(cipher + size), &written) == 1 &&
              EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_GET_TAG, tagSize, cipher + size) == 1,
          "tag");
  return box;
}

QByteArray open(QByteArray box, const QByteArray& key) {
  require(key.size() == keySize, "key size");
  const qsizetype size = box.size() - nonceSize - tagSize;
  require(size >= 0, "box too short");
  char* const cipher = box.data() + nonceSize;
  const Context context(EVP_CIPHER_CTX_new());
  require(context && EVP_DecryptInit_ex(context.get(), EVP_aes_256_gcm(), nullptr,
                                        bytes(key.constData()), bytes(box.constData())) == 1,
          "cipher set-up");
  int written = 0;
  inPieces(size, [&](qsizetype offset, int length) {
    return EVP_DecryptUpdate(context.get(), bytes(cipher + offset), &written,
                             bytes(cipher + offset), length) == 1;
  });
  require(EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_GCM_SET_TAG, tagSize, cipher + size) == 1 &&
              EVP_DecryptFinal_ex(context.get(), bytes(cipher + size), &written) == 1,
          "authentication");
  box.truncate(nonceSize + size);
  box.remove(0, nonceSize);
  return box;
}

}  // namespace vantor::sealed_box
