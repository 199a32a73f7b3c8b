// In a crash only what a signal handler may call is used: the heap, or a lock, may be what is
// broken.
#include "diagnosis/crash_handler.h"

#include <cxxabi.h>
#include <execinfo.h>

#include <QFile>
#include <QFileInfo>
#include <array>
#include <atomic>
#include <climits>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>
#include <typeinfo>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vantor {
namespace {

constexpr std::array faults = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr int mostCalls = 64;
constexpr unsigned longestWriting = 5;  // seconds

struct Prepared {
  char folder[PATH_MAX];
  char file[PATH_MAX];
  char about[4096];
  timespec start;
};

// What the handler finds.
Prepared prepared;
std::atomic_flag crashed = ATOMIC_FLAG_INIT;
std::atomic<const char*> uncaught = nullptr;  // name of an exception's type

class Descriptor {
 public:
  Descriptor(const char* path, int flags) : descriptor_(::open(path, flags | O_CLOEXEC, 0600)) {}
  ~Descriptor() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return descriptor_; }

 private:
  int descriptor_;
};

class Text {
 public:
  explicit Text(int descriptor) : descriptor_(descriptor) {}

  Text& operator<<(const char* text) {
    std::size_t left = std::strlen(text);
    while (left > 0) {
      const ssize_t written = ::write(descriptor_, text, left);
      if (written <= 0) break;
      text += written;
      left -= static_cast<std::size_t>(written);
    }
    return *this;
  }
  Text& decimal(std::int64_t number) {
    if (number < 0) *this << "-";
    return digits(static_cast<std::uint64_t>(number < 0 ? -number : number), 10);
  }
  Text& hexadecimal(std::uint64_t number) { return (*this << "0x").digits(number, 16); }

 private:
  Text& digits(std::uint64_t number, unsigned base) {
    char text[21];
    char* first = text + sizeof text - 1;
    *first = '\0';
    do {
      *--first = "0123456789abcdef"[number % base];
      number /= base;
    } while (number != 0);
    return *this << first;
  }

  int descriptor_;
};

struct Call {
  std::uintptr_t address = 0;
  std::uintptr_t offset = 0;
  char module[64] = {};  // its file's name without folders, which may name the user; or empty
};

struct Mapping {
  std::uintptr_t begin = 0, end = 0, offset = 0;
  char file[64] = {};
};

/// The rows of /proc/self/maps, which has what was loaded since the start as well.
class Mappings {
 public:
  /// Reads one; false after the last.
  bool next(Mapping& mapping) {
    mapping.begin = number();
    mapping.end = number();
    skipWord();  // permissions
    mapping.offset = number();
    skipWord();  // device
    skipWord();  // number of the file
    std::size_t length = 0;
    while (last_ != '\n' && last_ >= 0) {
      step();
      if (last_ == '/') {
        length = 0;
      } else if (last_ > ' ' && length + 1 < sizeof mapping.file) {
        mapping.file[length++] = static_cast<char>(last_);
      }
    }
    mapping.file[length] = '\0';
    return last_ >= 0;
  }

 private:
  void step() {
    if (position_ == held_) {
      held_ = ::read(maps_.get(), buffer_, sizeof buffer_);
      position_ = 0;
    }
    last_ = held_ > 0 ? static_cast<unsigned char>(buffer_[position_++]) : -1;
  }
  std::uintptr_t number() {
    std::uintptr_t value = 0;
    for (step(); last_ > ' ' && last_ != '-'; step())
      value =
          value * 16 + static_cast<std::uintptr_t>(last_ <= '9' ? last_ - '0' : last_ - 'a' + 10);
    return value;
  }
  void skipWord() {
    if (last_ == '\n') return;
    do step();
    while (last_ > ' ');
  }

  Descriptor maps_{"/proc/self/maps", O_RDONLY};
  char buffer_[1024];
  ssize_t held_ = 0, position_ = 0;
  int last_ = 0;
};

/// Finds the module of each call.
void locate(Call* calls, int count) {
  Mappings mappings;
  Mapping mapping;
  std::uintptr_t base = 0;
  while (mappings.next(mapping)) {
    if (mapping.offset == 0) base = mapping.begin;
    for (Call* call = calls; call != calls + count; ++call) {
      if (call->address < mapping.begin || call->address >= mapping.end) continue;
      call->offset = call->address - base;
      std::memcpy(call->module, mapping.file, sizeof call->module);
    }
  }
}

void writeStack(Text& output) {
  void* addresses[mostCalls];
  // Static, since the alternate stack is small; only one thread comes here.
  static Call calls[mostCalls];
  const int count = ::backtrace(addresses, mostCalls);
  for (int i = 0; i < count; ++i) calls[i].address = reinterpret_cast<std::uintptr_t>(addresses[i]);
  locate(calls, count);
  for (int i = 0; i < count; ++i) {
    (output << "#").decimal(i) << " ";
    if (calls[i].module[0])
      (output << calls[i].module << "+").hexadecimal(calls[i].offset) << "\n";
    else
      output.hexadecimal(calls[i].address) << "\n";
  }
}

const char* nameOf(int signal) {
  switch (signal) {
    case SIGSEGV:
      return "SIGSEGV";
    case SIGBUS:
      return "SIGBUS";
    case SIGFPE:
      return "SIGFPE";
    case SIGILL:
      return "SIGILL";
    default:
      return "SIGABRT";
  }
}

void writeReport(int signal, const siginfo_t& info) {
  ::mkdir(prepared.folder, 0700);
  const Descriptor file(prepared.file, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW);
  Text output(file.get());
  char thread[16] = {};
  ::prctl(PR_GET_NAME, thread);
  timespec now = {};
  ::clock_gettime(CLOCK_BOOTTIME, &now);
  output << prepared.about << "ended by: " << nameOf(signal) << ", code ";
  output.decimal(info.si_code);
  if (info.si_code > 0 && signal != SIGABRT)
    (output << ", at ").hexadecimal(reinterpret_cast<std::uintptr_t>(info.si_addr));
  if (const char* type = uncaught) output << "\nexception: " << type;
  (output << "\nthread: " << thread << "\nafter: ").decimal(now.tv_sec - prepared.start.tv_sec)
      << " s\n\n";
  writeStack(output);
}

void handle(int signal, siginfo_t* info, void*) {
  // Another thread that is here already ends the process.
  while (crashed.test_and_set()) ::pause();
  std::signal(SIGALRM, SIG_DFL);
  ::alarm(longestWriting);
  writeReport(signal, *info);
  std::signal(signal, SIG_DFL);
  // The fault comes again by itself, with its registers, unless somebody sent it.
  if (info->si_code <= 0) ::raise(signal);
}

/// In place of the library's own, which prints what the exception says.
[[noreturn]] void terminate() {
  if (const std::type_info* type = abi::__cxa_current_exception_type()) {
    const char* name = abi::__cxa_demangle(type->name(), nullptr, nullptr, nullptr);
    uncaught = name ? name : type->name();
    std::fprintf(stderr, "vantor: nobody caught %s\n", uncaught.load());
  }
  std::abort();
}

template <std::size_t size>
void copy(char (&target)[size], const QByteArray& text) {
  std::strncpy(target, text.constData(), size - 1);
}

}  // namespace

void reportCrashes(const QString& file, const QByteArray& about) {
  copy(prepared.file, QFile::encodeName(file));
  copy(prepared.folder, QFile::encodeName(QFileInfo(file).path()));
  copy(prepared.about, about);
  ::clock_gettime(CLOCK_BOOTTIME, &prepared.start);
  // Its first call loads a library.
  void* none[1];
  ::backtrace(none, 1);
  // Room for a stack that has none left.
  alignas(16) static char room[64 << 10];
  const stack_t stack = {.ss_sp = room, .ss_flags = 0, .ss_size = sizeof room};
  ::sigaltstack(&stack, nullptr);
  struct sigaction action = {};
  action.sa_sigaction = handle;
  action.sa_flags = SA_SIGINFO | SA_ONSTACK;
  // A fault in the handler ends the process at once, for which it has to be held back.
  ::sigfillset(&action.sa_mask);
  ::sigdelset(&action.sa_mask, SIGALRM);
  for (const int signal : faults) ::sigaction(signal, &action, nullptr);
  std::set_terminate(terminate);
}

}  // namespace vantor
