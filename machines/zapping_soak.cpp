// Hours of changing channels with the real engine: streams, playlists, movies, sound alone, and
// sources that fail in every way, gone through in haste or looked at. Each that is looked at ends
// in a picture, in sound or in a sentence, and at the end memory, threads, descriptors and sockets
// are what they were after the first changes. VANTOR_CHANGES says how many, VANTOR_SEED which.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTest>
#include <random>

#include "platform/memory.h"
#include "support/environment_number.h"
#include "support/simulated_playback.h"
#include "support/test_media.h"

namespace vantor::machine {
namespace {

using namespace test;

/// What the process holds, the simulator in it included.
struct Held {
  double megabytes = 0;
  QStringList threads;  // their names
  qsizetype descriptors = 0;
  qsizetype sockets = 0;

  static QStringList entries(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
  }
  static QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
  }
  static Held now() {
    Held held;
    held.megabytes = contents(u"/proc/self/statm"_s).split(' ').value(1).toDouble() * 4096 / 1e6;
    for (const QString& task : entries(u"/proc/self/task"_s))
      held.threads += QString::fromUtf8(contents(u"/proc/self/task/%1/comm"_s.arg(task)));
    for (const QString& descriptor : entries(u"/proc/self/fd"_s)) {
      ++held.descriptors;
      held.sockets += QFile::symLinkTarget(u"/proc/self/fd/"_s + descriptor).contains(u"socket:"_s);
    }
    return held;
  }
};

void PrintTo(const Held& held, std::ostream* out) {
  *out << held.megabytes << " MB, " << held.threads.size() << " threads, " << held.descriptors
       << " descriptors, " << held.sockets << " sockets ("
       << held.threads.join(u", "_s).toStdString() << ")";
}

class ZappingSoak : public ::testing::Test, protected SimulatedPlayback {
 protected:
  std::mt19937 random;

  static void SetUpTestSuite() { prepareHeap(); }

  std::size_t below(std::size_t limit) {
    return std::uniform_int_distribution<std::size_t>(0, limit - 1)(random);
  }

  PlayRequest source(int change) {
    const int channel = static_cast<int>(below(4));
    PlayRequest request{.title = u"Source"_s, .id = QString::number(change), .agent = u"Agent/1"_s};
    request.kind = SourceKind::broadcast;
    switch (below(10)) {
      case 0:
        request.kind = SourceKind::file;
        request.url = QUrl::fromLocalFile(folder.filePath(u"sound.mp3"_s));
        break;
      case 1:
      case 2:
        request.kind = SourceKind::onDemand;
        request.url = address(sim::Kind::movie, sim::entryId(sim::Kind::movie, channel), u"mp4"_s);
        break;
      case 3:
        request.url = address(sim::Kind::live, 999'999, u"ts"_s);
        break;
      case 4:
      case 5:
        request.url = address(sim::Kind::live, sim::entryId(sim::Kind::live, channel), u"m3u8"_s);
        break;
      default:
        request.url = address(sim::Kind::live, sim::entryId(sim::Kind::live, channel), u"ts"_s);
    }
    return request;
  }

  void misbehave() {
    using enum sim::Fault;
    static constexpr std::array faults{none,
                                       none,
                                       none,
                                       none,
                                       none,
                                       none,
                                       none,
                                       none,
                                       none,
                                       none,
                                       silent,
                                       slow,
                                       cutOff,
                                       unsteady,
                                       status403,
                                       status404,
                                       status500,
                                       status503,
                                       html,
                                       garbage,
                                       notHttp,
                                       empty,
                                       redirectSameOrigin,
                                       redirectLoop};
    for (const char* action : {"live", "segment", "movie"})
      server.setFault(action, faults[below(faults.size())]);
  }

  /// A picture, sound, or a sentence.
  bool hasEnded() const {
    return playback.state() == PlaybackState::failed
               ? playback.message().has_value()
               : (playback.state() == PlaybackState::playing ||
                  playback.state() == PlaybackState::ended);
  }

  void change(int number) {
    misbehave();
    const PlayRequest request = source(number);
    playback.play(request);
    if (below(3) > 0) {
      QTest::qWait(static_cast<int>(below(60)));
      return;
    }
    EXPECT_TRUE(eventually([this] { return hasEnded(); }))
        << number << ": " << request.url.path().toStdString();
  }

  Held atRest() {
    server.reset();
    playback.stop();
    EXPECT_TRUE(eventually([this] {
      return server.counters().streamsOpen == 0 && playback.state() == PlaybackState::idle;
    }));
    QTest::qWait(500);
    // What is kept for later pictures is none of what is held.
    returnFreeMemory();
    return Held::now();
  }
};

TEST_F(ZappingSoak, LeavesNothingBehind) {
  const int changes = environmentNumber("VANTOR_CHANGES", 60);
  const int first = std::min(100, changes / 2);
  const int seed = environmentNumber("VANTOR_SEED", 1);
  std::printf("%d changes, seed %d\n", changes, seed);
  random.seed(static_cast<unsigned>(seed));
  ASSERT_TRUE(makeMedia(tone(3) + u" -c:a libmp3lame"_s, folder.filePath(u"sound.mp3"_s)));
  Held before;
  for (int number = 0; number < changes && !HasFailure(); ++number) {
    change(number);
    if (number + 1 == first) before = atRest();
  }
  const Held after = atRest();
  std::printf("after %d: %s\nafter all: %s\n", first, testing::PrintToString(before).c_str(),
              testing::PrintToString(after).c_str());
  // Qt keeps connections for the next request, and some threads for the next piece of work.
  EXPECT_LE(after.threads.size(), before.threads.size() + 2);
  EXPECT_LE(after.descriptors, before.descriptors + 8);
  EXPECT_LE(after.sockets, before.sockets + 6);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
  EXPECT_LE(after.megabytes, before.megabytes + 48);
#endif
}

}  // namespace
}  // namespace vantor::machine
