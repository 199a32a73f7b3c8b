#pragma once

#include <QString>
#include <QUrl>

#include "playback/picture_shape.h"
#include "playback/track_choice.h"

namespace vantor {

enum class SourceKind : unsigned char {
  broadcast,  // without a length, whatever the engine takes for one
  onDemand,
  file,  // chosen from disk
};

/// One source to play.
struct PlayRequest {
  QUrl url;
  QString title;
  QString id;     // key under which progress is reported
  QString agent;  // HTTP User-Agent
  SourceKind kind = SourceKind::onDemand;
  double resume = 0;                       // seconds
  PictureShape shape = PictureShape::fit;  // to begin with
  TrackChoices tracks;                     // to begin with, where the source has them

  bool operator==(const PlayRequest&) const = default;
  /// Whether both are of the same source; all files from disk have one id.
  bool isOfSameSource(const PlayRequest& other) const {
    return id == other.id && (kind != SourceKind::file || url == other.url);
  }
};

}  // namespace vantor
