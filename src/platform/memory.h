#pragma once

namespace vantor {

// Nothing happens where the C library is not glibc.

/// Has all threads share a heap, and large blocks go back to the system when they are freed: a
/// library passes through blocks of many megabytes, which would be kept for later ones, 150 MB
/// after the largest account. What the first frame needs is taken at once. Before there are other
/// threads.
void prepareHeap();

/// Gives back what small blocks left. Takes milliseconds, in which others wait for the heap; any
/// thread.
void returnFreeMemory();

}  // namespace vantor
