// By hand, since QFile and QSaveFile follow links, wait at pipes, and tell of a failure without its
// number.
#include "storage/private_file.h"

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantor::private_file {
namespace {

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

class Descriptor {
 public:
  Descriptor(const QByteArray& path, int flags)
      : descriptor_(::open(path.constData(), flags | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR)) {
    if (descriptor_ < 0) fail("open");
  }
  ~Descriptor() { ::close(descriptor_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return descriptor_; }

 private:
  int descriptor_;
};

// What a catalogue can never need; a larger file is not ours.
constexpr qint64 largestFile = qint64{1} << 30;  // bytes

// One name for what is being written, so that interrupted writes do not pile up.
QByteArray unfinished(const QString& path) {
  return QFile::encodeName(path) + ".new";
}

void writeAll(int descriptor, QByteArrayView content) {
  for (qsizetype written = 0; written < content.size();) {
    const ssize_t count = ::write(descriptor, content.data() + written,
                                  static_cast<size_t>(content.size() - written));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail("write");
    written += count;
  }
}

/// Without this a power cut may take back that a file in the folder was renamed.
void syncFolderOf(const QByteArray& path) {
  // The folder itself may be a link.
  const Descriptor folder(path.first(path.lastIndexOf('/') + 1) + '.', O_RDONLY | O_DIRECTORY);
  // Not every file system can.
  if (::fsync(folder.get()) != 0 && errno != EINVAL) fail("sync of the folder");
}

}  // namespace

QByteArray read(const QString& path) {
  const Descriptor file(QFile::encodeName(path), O_RDONLY | O_NONBLOCK);
  struct stat status = {};
  if (::fstat(file.get(), &status) != 0) fail("stat");
  if (!S_ISREG(status.st_mode) || status.st_size > largestFile) {
    errno = EFBIG;
    fail("not a file of ours");
  }
  // Room behind the bytes, which the JSON reader wants.
  QByteArray content;
  content.reserve(status.st_size + 64);
  content.resize(status.st_size);
  qsizetype held = 0;
  while (held < content.size()) {
    const ssize_t count =
        ::read(file.get(), content.data() + held, static_cast<size_t>(content.size() - held));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) fail("read");
    if (count == 0) break;
    held += count;
  }
  content.truncate(held);
  return content;
}

void replace(const QString& path, QByteArrayView content) {
  const QByteArray temporary = unfinished(path);
  try {
    const Descriptor file(temporary, O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK);
    // The file may be left from a run with another mode.
    if (::fchmod(file.get(), S_IRUSR | S_IWUSR) != 0) fail("chmod");
    writeAll(file.get(), content);
    if (::fsync(file.get()) != 0) fail("sync");
    if (::rename(temporary.constData(), QFile::encodeName(path).constData()) != 0) fail("rename");
    syncFolderOf(temporary);
  } catch (...) {
    ::unlink(temporary.constData());
    throw;
  }
}

void append(const QString& path, const QByteArray& content) {
  const Descriptor file(QFile::encodeName(path), O_WRONLY | O_CREAT | O_APPEND | O_NONBLOCK);
  struct stat status = {};
  if (::fstat(file.get(), &status) != 0) fail("stat");
  if (!S_ISREG(status.st_mode)) {
    errno = EINVAL;
    fail("not a file of ours");
  }
  writeAll(file.get(), content);
}

void remove(const QString& path) {
  ::unlink(unfinished(path).constData());
  if (::unlink(QFile::encodeName(path).constData()) != 0 && errno != ENOENT) fail("remove");
}

}  // namespace vantor::private_file
