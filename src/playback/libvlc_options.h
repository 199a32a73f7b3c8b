#pragma once

#include <QByteArray>
#include <QList>

#include "playback/media_engine.h"

namespace vantor {

enum class AudioOutput { device, none };

/// Whether this desktop has a sound device or a sound server; VANTOR_AUDIO=none says it has not.
AudioOutput availableAudio();

/// Options of the library, in their order. `headless`: neither picture nor sound goes out.
QList<QByteArray> libraryOptions(bool headless, AudioOutput audio);

/// Options of one media. A user agent with control characters is left out.
QList<QByteArray> mediaOptions(const MediaSource& source);

}  // namespace vantor
