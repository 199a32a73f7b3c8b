#pragma once

#include <QByteArray>
#include <QByteArrayList>

namespace vantor {

/// Whether the program may use what libVLC's public interface leaves out, which another version may
/// change without a word: its recorder, and its description of a picture's format. Without it
/// nothing can be recorded, and pictures count as what most are.
enum class LibVLCInternals { used, left };

/// Used when `tried` names both the version that the program was built with and that of the library
/// it runs with, which tells a name after the version.
LibVLCInternals internalsOf(const QByteArray& built, const QByteArray& library,
                            const QByteArrayList& tried);

/// The same for this program. Says in the log why it leaves them, at every call.
LibVLCInternals libVLCInternals();

}  // namespace vantor
