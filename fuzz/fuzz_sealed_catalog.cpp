#include "cost.h"
#include "input.h"
#include "library/catalog_stored_form.h"
#include "storage/sealed_box.h"

using namespace vantor;

namespace {

const QByteArray key(sealed_box::keySize, 'k');

/// What was sealed opens again, and not once a byte of it differs.
void checkSeal(const QByteArray& bytes) {
  QByteArray box = QByteArray::fromStdString(sealed_box::seal(bytes.toStdString(), key));
  mustHold(sealed_box::open(box, key) == bytes);
  const qsizetype place = bytes.isEmpty() ? 0 : static_cast<unsigned char>(bytes[0]) % box.size();
  box[place] = static_cast<char>(box[place] ^ 1);
  try {
    sealed_box::open(box, key);
  } catch (const sealed_box::Failure&) {
    return;
  }
  mustHold(false);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Yardstick yardstick(
      [](qsizetype plain) {
        const Harmless rows{R"({"items":[],"savedAt":1,"categories":[)",
                            R"({"id":"1","name":"a"},)", R"({"id":"1","name":"a"}]})"};
        return QByteArray::fromStdString(sealed_box::seal(rows.ofSize(plain).toStdString(), key));
      },
      [](const QByteArray& bytes) {
        try {
          mayRefuse([&] { catalogFromJSON(sealed_box::open(bytes, key)); });
        } catch (const sealed_box::Failure&) {
        }
      });
  const QByteArray bytes = inputBytes(data, size);
  const qsizetype memory = yardstick.measure(bytes);
  mustHold(memory <= 65'536 + 64 * bytes.size());
  checkSeal(bytes);
  return 0;
}
