// Replaces a file for ever, each time with one byte value repeated; killed by a test.
#include "storage/private_file.h"

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const QString path = QString::fromLocal8Bit(argv[1]);
  for (char value = 'a';; value = value == 'z' ? 'a' : static_cast<char>(value + 1))
    vantor::private_file::replace(path, QByteArray(8 << 20, value));
}
