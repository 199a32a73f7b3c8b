#include "platform/memory.h"

#ifdef __GLIBC__
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <span>
#endif

namespace vantor {

#ifdef __GLIBC__
namespace {

constexpr int kibibyte = 1 << 10;
constexpr int mebibyte = 1 << 20;
constexpr int launchHeap = 64 * mebibyte;

std::span<char> hugePart;  // of the heap, filled by huge pages

/// Takes at once what the first frame needs, and has the system fill it by huge pages where it has
/// them: the faults of 10,000 small ones are a fifth of the time until that frame.
std::span<char> growForLaunch() {
  auto* const begin = static_cast<char*>(sbrk(0));
  mallopt(M_TOP_PAD, launchHeap);
  // Volatile, or the compiler leaves both calls out.
  void* volatile const more = std::malloc(512 * kibibyte);
  std::free(more);
  mallopt(M_TOP_PAD, 128 * kibibyte);
  const std::span grown(begin, static_cast<char*>(sbrk(0)));
  madvise(grown.data(), grown.size(), MADV_HUGEPAGE);
  return grown;
}

}  // namespace
#endif

void prepareHeap() {
#ifdef __GLIBC__
  // The heap of a thread grows by a page at a time, with a system call for each that interrupts the
  // other threads.
  mallopt(M_ARENA_MAX, 1);
  // Answers and copies lie above it; pictures that play are taken from pools.
  mallopt(M_MMAP_THRESHOLD, mebibyte);
  // Or whoever frees something would give back what the launch has not used yet.
  mallopt(M_TRIM_THRESHOLD, 2 * launchHeap);
  hugePart = growForLaunch();
#endif
}

void returnFreeMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
  // Or the system would make huge pages again of what is left between the gaps.
  madvise(hugePart.data(), hugePart.size(), MADV_NOHUGEPAGE);
#endif
}

}  // namespace vantor
