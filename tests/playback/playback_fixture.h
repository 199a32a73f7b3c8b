#pragma once

#include <gmock/gmock.h>

#include <QDir>
#include <QTemporaryDir>

#include "platform/worker.h"
#include "playback/playback.h"
#include "support/fake_engine.h"
#include "support/manual_clock.h"
#include "support/waiting.h"

namespace vantor::test {

class PlaybackFixture : public ::testing::Test {
 protected:
  const Settled settled;
  QTemporaryDir temporary;
  ManualClock clock;
  FakeEngine engine;
  Worker worker;
  Playback playback{engine, clock, worker, folders(), Output::shown};
  QStringList progress;

  void SetUp() override {
    playback.onProgress = [this](const QString& id, double seconds, double duration) {
      progress.append(u"%1 %2/%3"_s.arg(id).arg(seconds).arg(duration));
    };
  }

  Folders folders() const {
    return {.applicationSupport = temporary.path() + u"/data"_s, .temporary = temporary.path()};
  }

  static PlayRequest channel(const QString& id, double resume = 0) {
    return {.url = QUrl(u"http://tv.example/live/%1.ts"_s.arg(id)),
            .title = u"Channel %1"_s.arg(id),
            .id = id,
            .agent = u"Agent/1"_s,
            .resume = resume};
  }

  /// What the player shows, as "1 failed: This source …".
  std::string look() const {
    static constexpr const char* states[] = {"idle",   "opening", "suspended", "playing",
                                             "paused", "ended",   "failed"};
    QString text = QString::fromLatin1(states[static_cast<int>(playback.state())]);
    if (playback.itemID()) text.prepend(*playback.itemID() + u' ');
    if (playback.message()) text += u": "_s + *playback.message();
    return text.toStdString();
  }

  /// Opens a source and lets its opening and first look at the engine happen.
  void open(const PlayRequest& request) {
    playback.play(request);
    settle();
  }

  /// Opens a source whose first picture is there.
  void openPlaying(const PlayRequest& request) {
    open(request);
    starts();
  }
  void starts() {
    engine.now.decodedVideo = 1;
    see(EngineState::playing);
  }

  /// The engine has come into a state, and is looked at.
  void see(EngineState state) {
    engine.now.state = state;
    clock.advance(250ms);
  }
  void see(const EngineStatus& status) {
    engine.now = status;
    clock.advance(250ms);
  }

  QStringList leftOvers() const {
    return QDir(temporary.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
  }
};

}  // namespace vantor::test
