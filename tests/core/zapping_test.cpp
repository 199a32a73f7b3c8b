#include "core/zapping.h"

#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class ZappingTest : public ModelTest {
 protected:
  ZappingTest() { signIn(rows(LibraryKind::live, 1, 9)); }

  void play(const MediaItem& item) {
    app.play(item);
    opened();
  }
  /// Numbers of the channels that the engine is given until then, since the last look.
  QStringList opened(std::chrono::milliseconds time = 0ms) {
    clock.advance(time);
    QStringList numbers;
    for (const QString& call : engine.takeCalls())
      if (call.startsWith(u"load "_s))
        numbers += QUrl(call.section(u' ', 1, 1)).fileName().section(u'.', 0, 0);
    return numbers;
  }
  QString chosen() const { return zapping.channel() ? zapping.channel()->name : QString(); }
  bool number(const QString& digits) {
    bool taken = true;
    for (const QChar digit : digits) taken = zapping.type(digit.digitValue()) && taken;
    return taken;
  }

  AppModel& app = launch();
  Zapping zapping{app, clock};
};

TEST_F(ZappingTest, AHeldKeyOpensOnlyWhereItRests) {
  play(item(6));
  for (int i = 0; i < 40; ++i) {
    EXPECT_TRUE(zapping.step(1));
    clock.advance(30ms);
  }
  EXPECT_EQ(chosen(), u"Title 2"_s)
      << "the choice moves at once, and after the last comes the first";
  EXPECT_EQ(zapping.number(), 2U);
  EXPECT_EQ(app.playback().title(), u"Title 7"_s);
  EXPECT_EQ(opened(), QStringList());
  EXPECT_EQ(opened(250ms), QStringList{u"2"_s});
  zapping.step(-3);
  EXPECT_EQ(opened(250ms), QStringList{u"8"_s});
  zapping.step(1);
  zapping.step(-1);
  EXPECT_EQ(opened(1s), QStringList()) << "what plays is not opened again";
}

TEST_F(ZappingTest, WhatHasFailedOrEndedIsOpenedAgain) {
  for (const EngineState end : {EngineState::error, EngineState::ended}) {
    play(item(6));
    engine.now = filmAt(0, 0);
    clock.advance(250ms);
    engine.now.state = end;
    clock.advance(250ms);
    zapping.step(-1);
    zapping.step(1);
    EXPECT_EQ(opened(250ms), QStringList{u"7"_s});
  }
}

TEST_F(ZappingTest, TypedNumbers) {
  // The last is the file that is opened, unless what plays goes on.
  const std::tuple<const char*, bool, QString> cases[] = {
      {"3", false, u"3"_s}, {"3", true, u"3"_s},  {"0009", true, u"9"_s},   {"10", true, {}},
      {"0", false, {}},     {"999999", true, {}}, {"9999992", true, u"2"_s}};
  for (const auto& [digits, entered, file] : cases) {
    SCOPED_TRACE(digits);
    play(item(4));
    EXPECT_TRUE(number(QString::fromLatin1(digits)));
    EXPECT_NE(zapping.typed(), QString());
    EXPECT_EQ(chosen(), u"Title 5"_s);
    EXPECT_EQ(opened(1400ms), QStringList());
    if (entered)
      EXPECT_TRUE(zapping.enter());
    else
      clock.advance(100ms);
    EXPECT_EQ(zapping.typed(), QString());
    EXPECT_EQ(opened(), file.isEmpty() ? QStringList() : QStringList{file});
    EXPECT_FALSE(zapping.enter());
    EXPECT_EQ(opened(2s), QStringList());
  }
  number(u"7"_s);
  zapping.step(1);
  EXPECT_EQ(zapping.typed(), QString());
  EXPECT_EQ(opened(2s), QStringList{u"3"_s}) << "a step is the later wish";
}

TEST_F(ZappingTest, WhatIsNotOpenedYetIsTakenBack) {
  play(item(4));
  const std::function<void()> begun[] = {
      [&] { zapping.step(2); },
      [&] { number(u"3"_s); },
      [&] { zapping.step(2), number(u"3"_s); },
  };
  for (const auto& begin : begun) {
    begin();
    EXPECT_TRUE(zapping.takeBack());
    EXPECT_EQ(zapping.typed(), QString());
    EXPECT_EQ(chosen(), u"Title 5"_s);
    EXPECT_EQ(opened(2s), QStringList());
    EXPECT_FALSE(zapping.takeBack());
  }
}

TEST_F(ZappingTest, TheLastChannelAndBack) {
  play(item(1));
  EXPECT_FALSE(zapping.goBack());
  play(item(5));
  zapping.step(1);
  for (const char* file : {"2", "6", "2"}) {
    EXPECT_TRUE(zapping.goBack());
    EXPECT_EQ(opened(1s), QStringList{QString::fromLatin1(file)});
  }
}

TEST_F(ZappingTest, TheListIsThatOfTheStart) {
  app.setCategory(u"1"_s);  // 1, 4, 7
  play(item(2));
  const std::pair<QString, std::function<void()>> changes[] = {
      {u"1"_s, [&] { app.browsing().setSearch(u"nothing"_s); }},
      {u"4"_s, [&] { app.navigate(Section::movies); }},
      {u"7"_s,
       [&] {
         app.navigate(Section::live);
         app.load(LibraryKind::live, LoadMode::refresh);
         answer(LibraryKind::live, "[]");
         EXPECT_TRUE(app.browsing().items().empty());
       }},
  };
  for (const auto& [file, change] : changes) {
    change();
    zapping.step(1);
    EXPECT_EQ(opened(250ms), QStringList{file});
  }
}

TEST_F(ZappingTest, TheListIsThatOfTheLastStartAlsoOfWhatPlays) {
  play(item(3));
  app.setCategory(u"1"_s);  // 1, 4, 7
  zapping.step(2);
  play(item(1));
  EXPECT_EQ(opened(250ms), QStringList()) << "the start is the later wish";
  zapping.step(1);
  EXPECT_EQ(opened(250ms), QStringList{u"7"_s});
  zapping.goBack();
  EXPECT_EQ(opened(), QStringList{u"4"_s});
}

TEST_F(ZappingTest, OnlyChannelsOfTheProvider) {
  int changes = 0;
  QObject::connect(&zapping, &Zapping::changed, [&] { ++changes; });
  const std::function<void()> ends[] = {
      [&] { playMovie(); },
      [&] { app.playback().stop(); },
      [&] { signOut(); },
  };
  for (const auto& end : ends) {
    play(item(0));
    play(item(1));
    zapping.step(2);
    number(u"3"_s);
    changes = 0;
    end();
    EXPECT_GT(changes, 0);
    EXPECT_EQ(chosen(), QString());
    opened();
    EXPECT_FALSE(zapping.step(1) || zapping.type(1) || zapping.enter() || zapping.goBack());
    EXPECT_EQ(opened(5s), QStringList());
  }
}

TEST_F(ZappingTest, ARecordingKeepsItsChannel) {
  play(item(0));
  engine.now = filmAt(0, 0);
  engine.now.recordable = true;
  clock.advance(1s);
  ASSERT_EQ(app.playback().startRecording(home.path()), std::nullopt);
  zapping.step(3);
  EXPECT_EQ(opened(250ms), QStringList());
  EXPECT_EQ(chosen(), u"Title 1"_s) << "the choice comes back to what plays";
}

}  // namespace
}  // namespace vantor::test
