#include "input.h"
#include "library/catalog_stored_form.h"
#include "storage/sealed_box.h"

using namespace vantor;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const QByteArray key(sealed_box::keySize, 'k');
  const QByteArray bytes = inputBytes(data, size);
  mayRefuse([&] { catalogFromJSON(sealed_box::open(bytes, key)); });
  // What was sealed opens again, and not once a byte of it differs.
  QByteArray box = QByteArray::fromStdString(sealed_box::seal(bytes.toStdString(), key));
  mustHold(sealed_box::open(box, key) == bytes);
  const qsizetype place = size > 0 ? data[0] % box.size() : 0;
  box[place] = static_cast<char>(box[place] ^ 1);
  bool refused = false;
  try {
    sealed_box::open(box, key);
  } catch (const sealed_box::Failure&) {
    refused = true;
  }
  mustHold(refused);
  return 0;
}
