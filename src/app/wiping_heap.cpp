// Addresses carry the password, and whoever handles one leaves copies behind: Qt, libVLC, GLib and
// we. So what is given back to the heap is wiped first, whoever gives it back. Of large blocks,
// which no address is in, the time that takes would be noticed.
#include <dlfcn.h>
#include <malloc.h>

#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t largest = 32 * 1024;  // bytes

// Those that would have been called otherwise: the C library's, or of whoever was preloaded in
// its place.
template <class Function>
Function* following(const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

void wipe(void* block, std::size_t begin) {
  const std::size_t end = ::malloc_usable_size(block);
  if (end <= largest && begin < end)
    ::explicit_bzero(static_cast<char*>(block) + begin, end - begin);
}

}  // namespace

extern "C" void free(void* block) noexcept {
  static const auto giveBack = following<void(void*)>("free");
  if (block != nullptr) wipe(block, 0);
  giveBack(block);
}

// The library's would leave the old place as it is.
extern "C" void* realloc(void* block, std::size_t size) noexcept {
  static const auto change = following<void*(void*, std::size_t)>("realloc");
  const std::size_t held = block != nullptr ? ::malloc_usable_size(block) : 0;
  if (held == 0 || held > largest) return change(block, size);
  if (size <= held) {
    wipe(block, size);
    return change(block, size);
  }
  void* const moved = std::malloc(size);
  if (moved == nullptr) return nullptr;
  std::memcpy(moved, block, held);
  free(block);
  return moved;
}
