#include "platform/memory.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace vantor {

void returnLargeBlocks() {
#ifdef __GLIBC__
  // Answers and copies lie above it; pictures that play are taken from pools.
  mallopt(M_MMAP_THRESHOLD, 1 << 20);
#endif
}

void returnFreeMemory() {
#ifdef __GLIBC__
  malloc_trim(0);
#endif
}

}  // namespace vantor
