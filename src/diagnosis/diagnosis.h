#pragma once

#include <chrono>

namespace vantor {

/// Prints what people who help with a fault need to know: versions, display, sound, keyring, what
/// is on the disk, the last lines of the log. No name, no address, no secret, and of paths not the
/// user's home. Ends within `longest`, whatever does not answer, and leaves no file.
///
/// Before there is any thread or application in the process.
void diagnose(int& argc, char** argv, std::chrono::milliseconds longest);

}  // namespace vantor
