// What the provider sees of streams that break off: the real engine, in quicker time.
#include <gtest/gtest.h>

#include "stream_server.h"
#include "support/awaited.h"
#include "support/environment_number.h"
#include "support/files.h"
#include "support/simulated_playback.h"

namespace vantor::test {
namespace {

class ReturningStreamTest : public ::testing::TestWithParam<const char*>,
                            protected SimulatedPlayback {
 protected:
  int openings = 0;
  int failures = 0;
  int dark = 0;  // of those, without a picture held

  void SetUp() override {
    QObject::connect(&playback, &Playback::stateChanged, &playback, [this] {
      if (playback.state() == PlaybackState::opening) ++openings;
      if (playback.state() != PlaybackState::failed) return;
      ++failures;
      if (keeper.bringingBack() && !frames->take()) ++dark;
    });
  }

  void play(sim::Kind kind, const QString& extension) {
    playback.play({.url = address(kind, sim::entryId(kind, 0), extension),
                   .title = u"Source"_s,
                   .id = u"1"_s,
                   .agent = u"Agent/1"_s,
                   .kind = kind == sim::Kind::live ? SourceKind::broadcast : SourceKind::onDemand});
  }
  void playChannel() { play(sim::Kind::live, QString::fromLatin1(GetParam())); }
  bool isTransportStream() const { return GetParam() == std::string_view("ts"); }
  bool playsAgain() {
    return eventually(
        [&] { return playback.state() == PlaybackState::playing && !keeper.bringingBack(); });
  }
  bool isGivenUp() const {
    return playback.state() == PlaybackState::failed && !keeper.bringingBack();
  }
  bool breaksOff() {
    server.setFault("live", sim::Fault::cutOff);
    server.setFault("segment", sim::Fault::status503);
    if (isTransportStream()) playback.retry();
    return eventually([&] { return keeper.bringingBack(); });
  }
  int requests(const char* action) const { return server.counters().requests[action]; }
  /// Times the engine began with the channel's address; a playlist is also read while it plays.
  int asked() const { return requests("live"); }
  /// Connections that playing takes, without any mishap.
  int usual() {
    EXPECT_TRUE(playsAgain());
    const SteadyTime end = clock.steadyNow() + 15s;
    EXPECT_TRUE(eventually([&] { return clock.steadyNow() > end; }));
    return server.counters().mostStreamsAtOnce;
  }
};

TEST_P(ReturningStreamTest, OneConnectionAtATimeHoweverItBreaksOff) {
  playChannel();
  const int connections = usual();
  if (isTransportStream()) {
    EXPECT_EQ(connections, 1);
  }
  server.setFault("live", sim::Fault::unsteady);
  server.setFault("segment", sim::Fault::unsteady);
  server.resetCounters();
  openings = failures = 0;
  playback.retry();
  // An hour of it: VANTOR_DROPS=1000.
  const int enough = environmentNumber("VANTOR_DROPS", 6);
  while (openings < enough) {
    const int before = openings;
    ASSERT_TRUE(eventually([&] { return openings > before || isGivenUp(); }));
    if (openings == before) playback.retry();
  }
  const sim::Counters seen = server.counters();
  EXPECT_LE(seen.mostStreamsAtOnce, connections);
  if (isTransportStream()) {
    EXPECT_LE(asked(), 2 * openings + failures)
        << "libVLC tries once more what it cannot read; if that fails too, then comes the question";
  }
  server.reset();
  if (isGivenUp()) playback.retry();
  EXPECT_TRUE(playsAgain());
  EXPECT_TRUE(frames->latest());
}

TEST_P(ReturningStreamTest, StaysAwayFromAServerThatRefuses) {
  playChannel();
  ASSERT_TRUE(playsAgain());
  const int toOpen = asked();
  ASSERT_TRUE(breaksOff());
  server.setFault("live", sim::Fault::status403);
  openings = failures = 0;
  server.resetCounters();
  ASSERT_TRUE(eventually([&] { return !keeper.bringingBack(); }));
  EXPECT_EQ(playback.state(), PlaybackState::failed);
  EXPECT_TRUE(playback.message());
  EXPECT_EQ(openings, 1);
  EXPECT_EQ(failures, 1);
  EXPECT_EQ(dark, 0);
  const int all = asked();
  if (isTransportStream()) {
    EXPECT_LE(all, 3) << "one attempt, which libVLC repeats, and one question";
  }
  const SteadyTime end = clock.steadyNow() + 40s;
  ASSERT_TRUE(eventually([&] { return clock.steadyNow() > end; }));
  EXPECT_EQ(asked(), all);
  EXPECT_GE(toOpen, 1);
}

TEST_P(ReturningStreamTest, CommandBetweenAttemptAndAnswerLeavesOneConnection) {
  playChannel();
  const int connections = usual();
  ASSERT_TRUE(breaksOff());
  server.setFault("live", sim::Fault::status503);
  failures = 0;
  ASSERT_TRUE(eventually([&] { return failures > 0; }));
  server.resetCounters();
  server.hold("live");
  ASSERT_TRUE(server.waitForRequests("live", 0));
  ASSERT_TRUE(eventually([&] { return asked() > 0; })) << "the question, or an attempt";
  server.reset();
  playback.retry();
  keeper.hurry();
  server.release("live");
  EXPECT_TRUE(playsAgain());
  EXPECT_LE(server.counters().mostStreamsAtOnce, connections);
}

TEST_P(ReturningStreamTest, OneThatStallsIsOpenedAgain) {
  if (!isTransportStream()) GTEST_SKIP() << "libVLC gives a segment up by itself";
  const QString channel = QString::fromStdString(server.mediaPath("channel0.ts"));
  StreamServer stalling(readFile(channel).left(1'000'000));
  stalling.promised = 1 << 30;
  stalling.stalls = true;
  playback.play({.url = stalling.address("/1.ts"), .id = u"1"_s, .kind = SourceKind::broadcast});
  ASSERT_TRUE(playsAgain());
  ASSERT_TRUE(eventually([&] { return keeper.bringingBack(); }));
  EXPECT_EQ(playback.state(), PlaybackState::playing) << "libVLC goes on waiting";
  // It shows its last picture again, ten times a second.
  EXPECT_LT(engine.status().decodedVideo, 200);
  EXPECT_TRUE(playsAgain());
  EXPECT_EQ(stalling.requests.size(), 2);
  EXPECT_EQ(openings, 2);
}

TEST_P(ReturningStreamTest, OneThatFallsSilentHoldsUpNothingElse) {
  playChannel();
  ASSERT_TRUE(playsAgain());
  const char* const question = "get_live_categories";
  server.hold(question);
  const auto answer = start<QByteArray>([&](std::stop_token token) {
    QUrl address(QString::fromStdString(server.url()) + u"/player_api.php"_s);
    address.setQuery(u"username=%1&password=%2&action=%3"_s.arg(
        QString::fromStdString(options.username), QString::fromStdString(options.password),
        QString::fromLatin1(question)));
    return transport.fetch(HTTPRequest{.address = address}, defaultBodyLimit, token);
  });
  ASSERT_TRUE(eventually([&] { return requests(question) > 0; }));
  const char* const part = isTransportStream() ? "live" : "segment";
  server.setFault(part, sim::Fault::silent);
  server.resetCounters();
  playback.retry();
  ASSERT_TRUE(eventually([&] { return requests(part) > 0; }));
  play(sim::Kind::movie, u"mp4"_s);
  EXPECT_TRUE(playsAgain());
  server.release(question);
  EXPECT_TRUE(eventually([&] { return answer->value.has_value(); }));
}

INSTANTIATE_TEST_SUITE_P(All, ReturningStreamTest, ::testing::Values("ts", "m3u8"),
                         [](const auto& row) { return std::string(row.param); });

using ReturningFilmTest = ReturningStreamTest;

TEST_P(ReturningFilmTest, GoesOnFromWhereItWasCutOff) {
  // A server that knows no more of it; where it has the rest, libVLC goes on by itself.
  const QByteArray film =
      readFile(QString::fromStdString(server.mediaPath(std::string("movie.") + GetParam())));
  server.setBody("movie", film.left(film.size() / 2).toStdString(), "video/mp4");
  play(sim::Kind::movie, QString::fromLatin1(GetParam()));
  ASSERT_TRUE(playsAgain());
  playback.setRate(8);
  ASSERT_TRUE(eventually([&] { return keeper.bringingBack(); }));
  const double place = playback.transport()->seconds();
  EXPECT_GT(place, 10);
  EXPECT_LT(place, 40);
  server.reset();
  server.resetCounters();
  ASSERT_TRUE(playsAgain());
  ASSERT_TRUE(eventually([&] { return playback.transport()->seconds() > place - 5; }));
  EXPECT_EQ(openings, 2);
}

INSTANTIATE_TEST_SUITE_P(All, ReturningFilmTest, ::testing::Values("mkv", "mp4"),
                         [](const auto& row) { return std::string(row.param); });

}  // namespace
}  // namespace vantor::test
