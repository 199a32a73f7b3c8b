#include "playback/libvlc_internals.h"

#include <vlc/vlc.h>

#include <QDebug>

namespace vantor {

LibVLCInternals internalsOf(const QByteArray& built, const QByteArray& library,
                            const QByteArrayList& tried) {
  const QByteArray running = library.split(' ').first();
  return tried.contains(built) && tried.contains(running) ? LibVLCInternals::used
                                                          : LibVLCInternals::left;
}

LibVLCInternals libVLCInternals() {
  const QByteArray built = VANTOR_LIBVLC_BUILT;
  const QByteArray library = libvlc_get_version();
  const QByteArrayList tried = QByteArray(VANTOR_LIBVLC_TRIED).split(' ');
  const LibVLCInternals internals = internalsOf(built, library, tried);
  if (internals == LibVLCInternals::left) {
    qWarning().noquote().nospace()
        << "Recording and the exact format of pictures are off: they were tried with libVLC "
        << tried.join(", ") << ", not with " << library << " (built with " << built << ")";
  }
  return internals;
}

}  // namespace vantor
