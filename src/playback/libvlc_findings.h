#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QList>

namespace vantor {

/// The library's, which need not be that of the build.
QByteArray libVLCVersion();

struct SoundOutput {
  QByteArray name;
  // Those of cards; what a user may have named, such as headphones, is left out.
  QByteArrayList devices;
};

/// What libVLC finds on this machine.
struct LibVLCFindings {
  bool starts = false;
  QByteArrayList missing;  // plugins without which something does not play
  QList<SoundOutput> outputs;
};

/// Starts the library for that. Blocks, maybe for seconds; any thread.
LibVLCFindings lookAtLibVLC();

}  // namespace vantor
