#pragma once

#include <QByteArray>
#include <QList>
#include <thread>

#include "playback/media_engine.h"

namespace vantor {

enum class AudioOutput { none, card, server };

/// Where this desktop's sound can go now; VANTOR_AUDIO=none says nowhere.
AudioOutput availableAudio();

/// Options of the library, in their order. Each field of an interlaced source becomes a picture, as
/// good as this many processors allow.
QList<QByteArray> libraryOptions(Output output,
                                 unsigned processors = std::thread::hardware_concurrency());

/// Options of one media. A user agent with control characters is left out.
QList<QByteArray> mediaOptions(const MediaSource& source);

}  // namespace vantor
