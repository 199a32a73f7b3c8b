#include "support/model_fixture.h"

namespace vantor::test {
namespace {

class SoundSetupTest : public ModelTest {
 protected:
  SoundSetupTest() {
    launch();
    signIn();
    engine.takeCalls();
  }
  /// What the engine is told of the sound when a source begins; the sound then goes to `device`.
  QStringList told(const QString& device) {
    model->playback().stop();
    playMovie();
    engine.devices = {.present = {{u"tv"_s, u"TV"_s}, {u"bar"_s, u"Bar"_s}}, .inForce = device};
    clock.advance(250ms);
    return engine.takeCalls().filter(u"setAudioDe"_s);
  }
  Playback& playback() { return model->playback(); }
};

TEST_F(SoundSetupTest, EachDeviceHasItsDelay) {
  EXPECT_EQ(told(u"tv"_s), QStringList());
  playback().setAudioDelay(-50);
  EXPECT_EQ(told(u"bar"_s),
            (QStringList{u"setAudioDelay -50"_s, u"setAudioDelay -50"_s, u"setAudioDelay 0"_s}));
  playback().setAudioDelay(1'000'000);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioDelay 2000"_s});
  playback().setAudioDevice(u"tv"_s);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioDevice tv"_s});
  engine.devices.inForce = u"tv"_s;
  clock.advance(250ms);
  EXPECT_EQ(engine.takeCalls(), QStringList{u"setAudioDelay -50"_s});

  launch();
  EXPECT_EQ(playback().transport()->audioDelay(), -50);
  EXPECT_EQ(engine.takeCalls(), QStringList()) << "it would begin its work";
  EXPECT_EQ(told(u"bar"_s),
            (QStringList{u"setAudioDevice tv"_s, u"setAudioDelay -50"_s, u"setAudioDelay 2000"_s}));
  playback().setAudioDevice({});
  launch();
  EXPECT_EQ(playback().transport()->audioDevice(), QString());
}

TEST_F(SoundSetupTest, StoredDelaysAreBounded) {
  quit();
  NumberLists stored{{u""_s, {1e300}}, {u"tv"_s, {}}, {u"bar"_s, {-1e9, 1}}};
  for (int i = 0; i < 1000; ++i) stored.insert(QString::number(i), {25});
  Preferences(home.filePath(u"preferences.ini"_s)).setNumberLists(u"sound-delays"_s, stored);
  launch();
  EXPECT_EQ(playback().transport()->audioDelay(), 2000);
  told(u"bar"_s);
  EXPECT_EQ(playback().transport()->audioDelay(), -2000);
  EXPECT_EQ(preferences->numberLists(u"sound-delays"_s).size(), 2);
  told(u"tv"_s);
  EXPECT_EQ(playback().transport()->audioDelay(), 0);
}

}  // namespace
}  // namespace vantor::test
