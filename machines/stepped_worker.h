#pragma once

#include <cstddef>

namespace vantor::machine {

// In a program that links this no worker has a thread: what it is given waits to be chosen.

/// How many pieces of work could be begun next, of all workers.
std::size_t readyWork();
/// Does one of them, here and now; they are numbered by the age of their workers and their own.
void doWork(std::size_t number);

}  // namespace vantor::machine
