#pragma once

#include <QtQml/qqml.h>

#include "artwork/artwork_item.h"
#include "playback/video_frame_queue.h"
#include "playback/video_surface.h"

namespace vantor {

// Shows types of lower layers, which know no QML, to QML.

struct ArtworkItemForeign {
  Q_GADGET
  QML_FOREIGN(vantor::ArtworkItem)
  QML_NAMED_ELEMENT(ArtworkItem)
};

struct ArtworkStoreForeign {
  Q_GADGET
  QML_FOREIGN(vantor::ArtworkStore)
  QML_NAMED_ELEMENT(ArtworkStore)
  QML_UNCREATABLE("made by the program")
};

struct VideoSurfaceForeign {
  Q_GADGET
  QML_FOREIGN(vantor::VideoSurface)
  QML_NAMED_ELEMENT(VideoSurface)
};

struct VideoFrameQueueForeign {
  Q_GADGET
  QML_FOREIGN(vantor::VideoFrameQueue)
  QML_NAMED_ELEMENT(VideoFrameQueue)
  QML_UNCREATABLE("made by the program")
};

}  // namespace vantor
