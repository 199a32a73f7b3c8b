#pragma once

#include <gmock/gmock.h>

#include <QTemporaryDir>

#include "platform/worker.h"
#include "playback/libvlc_engine.h"
#include "playback/playback.h"
#include "support/files.h"
#include "support/test_media.h"
#include "support/waiting.h"

namespace vantor::test {

/// The real engine under the real controller.
class EngineFixture : public ::testing::Test {
 protected:
  const Settled settled;
  const bool unheard = qputenv("VANTOR_AUDIO", "none");
  QTemporaryDir folder;
  SystemClock clock;
  Worker worker;
  std::shared_ptr<VideoFrameQueue> frames = std::make_shared<VideoFrameQueue>();
  LibVLCEngine engine{frames, Output::shown};
  Playback playback{engine,
                    clock,
                    worker,
                    {.applicationSupport = path(u"it's my \"data\""_s), .temporary = folder.path()},
                    Output::shown};

  QString path(const QString& name) const { return folder.filePath(name); }

  QString make(const QString& name, const QString& arguments) {
    EXPECT_TRUE(makeMedia(arguments, path(name)));
    return path(name);
  }

  QString movie(const QString& name, const QString& color = u"red"_s) {
    return make(name,
                solidColor(color, u"320x180"_s, 3) + tone(3) + u" -pix_fmt yuv420p -c:a aac"_s);
  }

  /// Plays for a minute.
  QString longFilm() {
    return make(u"long.mkv"_s, solidColor(u"red"_s, u"160x90"_s, 60) + tone(60));
  }

  void playFile(const QString& file, double resume = 0) {
    playback.play({.url = QUrl::fromLocalFile(file),
                   .title = u"Film"_s,
                   .id = u"f"_s,
                   .kind = SourceKind::file,
                   .resume = resume});
  }
  void playAddress(const QUrl& address, const QString& agent = u"Agent/1"_s) {
    playback.play({.url = address, .title = u"Channel"_s, .id = u"c"_s, .agent = agent});
  }
  testing::AssertionResult starts() {
    if (!eventually([&] { return !playback.loading(); }))
      return testing::AssertionFailure() << "still loading";
    if (playback.message()) return testing::AssertionFailure() << playback.message()->toStdString();
    return testing::AssertionSuccess();
  }
  testing::AssertionResult starts(const QString& file) {
    playFile(file);
    return starts();
  }
  std::string failure() {
    if (!eventually([&] { return playback.message().has_value(); })) return "(none)";
    return playback.message()->toStdString();
  }
};

}  // namespace vantor::test
