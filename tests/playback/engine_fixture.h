#pragma once

#include <gmock/gmock.h>

#include <QTemporaryDir>

#include "platform/worker.h"
#include "playback/libvlc_engine.h"
#include "playback/playback.h"
#include "sim/library.h"
#include "sim/server.h"
#include "support/files.h"
#include "support/test_media.h"
#include "support/waiting.h"

namespace vantor::test {

/// A simulated provider's options, with media for whoever signs in as "viewer".
inline sim::Options simulated(const std::string& password) {
  sim::Options options;
  options.mediaFolder = qEnvironmentVariable("VANTOR_SIM_MEDIA").toStdString();
  options.username = "viewer";
  options.password = password;
  return options;
}

/// The address of its first stream of that kind.
inline QUrl streamOf(const sim::Server& server, const sim::Options& options, sim::Kind kind,
                     const QString& extension) {
  return QUrl(QString::fromStdString(server.url()) +
              u"/%1/viewer/%2/%3.%4"_s
                  .arg(QString::fromLatin1(sim::kindName(kind).data()),
                       QString::fromStdString(options.password))
                  .arg(sim::entryId(kind, 0))
                  .arg(extension));
}

/// The real engine under the real controller.
template <class Time>
class EngineFixtureIn : public ::testing::Test {
 protected:
  const Settled settled;
  QTemporaryDir folder;
  Time clock;
  Worker worker;
  std::shared_ptr<VideoFrameQueue> frames = std::make_shared<VideoFrameQueue>();
  LibVLCEngine engine{frames, Output::shown};
  Playback playback{engine,
                    clock,
                    worker,
                    {.applicationSupport = path(u"it's my \"data\""_s), .temporary = folder.path()},
                    Output::shown};

  static void SetUpTestSuite() { qputenv("VANTOR_AUDIO", "none"); }

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

  void playFile(const QString& file) {
    playback.play({.url = QUrl::fromLocalFile(file),
                   .title = u"Film"_s,
                   .id = u"f"_s,
                   .kind = SourceKind::file});
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

using EngineFixture = EngineFixtureIn<SystemClock>;

}  // namespace vantor::test
