#include "desktop/mpris_root.h"

#include "desktop/media_files.h"
#include "playback/playback.h"

namespace vantor {

using namespace Qt::StringLiterals;

MprisRoot::MprisRoot(QObject& object, Playback& playback, Actions actions, QString application)
    : QDBusAbstractAdaptor(&object),
      playback_(playback),
      actions_(std::move(actions)),
      application_(std::move(application)) {}

bool MprisRoot::fullScreen() const {
  return playback_.fullScreen();
}

void MprisRoot::setFullScreen(bool fullScreen) {
  playback_.setFullScreen(fullScreen);
}

bool MprisRoot::canSetFullScreen() const {
  return playback_.source().has_value();
}

QString MprisRoot::identity() {
  return u"Vantor Player"_s;
}

QStringList MprisRoot::schemes() {
  return {u"file"_s};
}

QStringList MprisRoot::types() {
  return mediaTypes();
}

}  // namespace vantor
