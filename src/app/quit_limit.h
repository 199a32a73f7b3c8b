#pragma once

#include <chrono>

namespace vantor {

/// Ends the process with `status` when it has not ended by itself within `longest` from now; a
/// later call replaces the limit. What is going on then cannot be called back, such as the decoding
/// of a picture, the search for a server's name or a desktop that does not answer, and what it
/// leaves half done is whole at the next start. May be called in a signal handler.
void limitQuitting(int status, std::chrono::milliseconds longest);
/// Whether there is a limit by now. May be called in a signal handler.
bool isQuittingLimited();

}  // namespace vantor
