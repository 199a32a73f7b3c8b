#pragma once

#include <QString>
#include <QUrl>

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
  double resume = 0;  // seconds

  bool operator==(const PlayRequest&) const = default;
};

}  // namespace vantor
