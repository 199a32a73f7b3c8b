#pragma once

namespace vantor {

// A library passes through blocks of many megabytes, which the C library would keep for later ones:
// 150 MB after the largest account. Nothing happens where it is not glibc.

/// Has large blocks go back to the system when they are freed. Before there are other threads.
void returnLargeBlocks();

/// Gives back what small blocks left. Takes milliseconds; any thread.
void returnFreeMemory();

}  // namespace vantor
