// Addresses carry the password, and whoever handles one leaves copies behind: Qt, libVLC, GLib and
// we. So what is given back to the heap is wiped first, whoever gives it back. Of large blocks,
// which no address is in, the time that takes would be noticed.
#include <malloc.h>

#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t largest = 32 * 1024;  // bytes

// The C library's own.
extern "C" void libraryFree(void* block) noexcept asm("__libc_free");
extern "C" void* libraryRealloc(void* block, std::size_t size) noexcept asm("__libc_realloc");

void wipe(void* block, std::size_t begin) {
  const std::size_t end = ::malloc_usable_size(block);
  if (end <= largest && begin < end)
    ::explicit_bzero(static_cast<char*>(block) + begin, end - begin);
}

}  // namespace

extern "C" void free(void* block) noexcept {
  if (block != nullptr) wipe(block, 0);
  libraryFree(block);
}

// The library's would leave the old place as it is.
extern "C" void* realloc(void* block, std::size_t size) noexcept {
  const std::size_t held = block != nullptr ? ::malloc_usable_size(block) : 0;
  if (held == 0 || held > largest) return libraryRealloc(block, size);
  if (size <= held) {
    wipe(block, size);
    return libraryRealloc(block, size);
  }
  void* const moved = std::malloc(size);
  if (moved == nullptr) return nullptr;
  std::memcpy(moved, block, held);
  free(block);
  return moved;
}
