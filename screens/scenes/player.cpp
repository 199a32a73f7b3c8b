#include <QCoreApplication>

#include "screens/scenes/scenes.h"

namespace vantor::screens {

using namespace Qt::StringLiterals;

void player(Album& album) {
  Stage stage(album);
  stage.signIn();
  TVShell& shell = *stage.views().shell();
  PlayerPane& pane = *stage.views().player();
  const auto playing = [&] { return pane.surfaceVisible() && !pane.loading(); };

  stage.provider().hold("live");
  shell.playRow(0);
  stage.until("the request", [&] { return pane.loading(); });
  stage.settle();
  stage.shot(u"opening"_s, u"A channel is being opened"_s);
  stage.provider().release("live");
  stage.until("the picture", playing);
  stage.settle();
  stage.shot(u"playing"_s, u"A channel plays beside its programme"_s);

  stage.provider().hold("live");
  shell.playRow(2);
  stage.until("the held picture", [&] { return pane.holdingFrame(); });
  stage.settle();
  stage.shot(u"held-picture"_s, u"The last picture stays while another channel is opened"_s);
  stage.provider().setFault("live", sim::Fault::status404);
  stage.provider().release("live");
  stage.until("the failure", [&] { return !pane.message().isEmpty(); });
  stage.settle();
  stage.shot(u"failed"_s, u"The channel cannot be played"_s);

  stage.provider().reset();
  shell.playRow(1);
  stage.until("the picture", playing);
  pane.toggleExpanded();
  stage.settle();
  stage.shot(u"expanded"_s, u"The player takes the whole window"_s);
  stage.views().remote()->setFullScreen(true);
  stage.settle();
  stage.shot(u"full-screen"_s, u"The picture fills the screen, with its controls"_s);
  stage.press(Qt::Key_Up);
  stage.until("the programmes", [&] { return stage.views().banner()->progress() >= 0; });
  stage.until("the picture", playing);
  stage.settle();
  stage.shot(u"full-screen-zapping"_s, u"The next channel, with its programmes"_s);
  stage.press(Qt::Key_1);
  stage.press(Qt::Key_2);
  stage.shot(u"full-screen-number"_s, u"A channel's number is being typed"_s);
  stage.press(Qt::Key_Return);
  stage.press(Qt::Key_Return);
  stage.until("the list", [&] { return stage.views().remote()->chooser() != nullptr; });
  stage.press(Qt::Key_Down);
  stage.settle();
  stage.shot(u"full-screen-channels"_s, u"The list of channels over the picture"_s);
  stage.press(Qt::Key_Escape);
  stage.press(Qt::Key_I, Qt::ControlModifier);
  stage.until("two looks at it",
              [&] { return stage.views().statistics()->text().contains(Statistics::tr("Shown")); });
  stage.settle();
  stage.shot(u"full-screen-statistics"_s, u"What is known of the picture"_s);
  stage.press(Qt::Key_I, Qt::ControlModifier);
  stage.press(Qt::Key_M);
  stage.shot(u"full-screen-note"_s, u"What a key has changed"_s);
  stage.press(Qt::Key_M);
  stage.press(Qt::Key_Question, Qt::ShiftModifier);
  stage.settle();
  stage.shot(u"keys"_s, u"All keys"_s);
  stage.press(Qt::Key_Escape);
  stage.views().remote()->setSmall(true);
  stage.settle();
  stage.shot(u"small-window"_s, u"The picture alone, in a small window"_s);
  stage.views().remote()->setSmall(false);
  shell.backToBrowsing();
  stage.settle();

  stage.provider().setFault("live", sim::Fault::cutOff);
  shell.playRow(2);
  stage.until("the interruption", [&] { return !pane.interruption().isEmpty(); });
  stage.provider().setFault("live", sim::Fault::status503);
  stage.settle();
  stage.shot(u"interrupted"_s, u"A channel broke off and is being opened again"_s);
  stage.provider().reset();
  stage.until("the picture", [&] { return pane.interruption().isEmpty(); });

  stage.show(Section::movies);
  stage.settle();
  shell.playRow(1);
  stage.until("the picture", playing);
  stage.until("the tracks", [&] { return stage.views().transport()->subtitles().size() > 1; });
  stage.settle();
  stage.shot(u"movie-playing"_s, u"A movie plays over its poster"_s);
  stage.press(Qt::Key_Space);
  stage.shot(u"paused"_s, u"The movie is paused"_s);
  pane.toggleExpanded();
  stage.settle();
  stage.click(QCoreApplication::translate("TransportBar", "Audio tracks"));
  stage.shot(u"audio-tracks"_s, u"The choice of an audio track"_s);
  stage.press(Qt::Key_Escape);
  stage.click(QCoreApplication::translate("TransportBar", "Subtitles"));
  stage.shot(u"subtitles"_s, u"The choice of subtitles"_s);
  stage.press(Qt::Key_Escape);
  stage.click(QCoreApplication::translate("TransportBar", "Playback speed"));
  stage.shot(u"speeds"_s, u"The choice of a speed"_s);
  stage.press(Qt::Key_Escape);
  stage.click(QCoreApplication::translate("TransportBar", "Sound output"));
  stage.shot(u"outputs"_s, u"The choice of a device for the sound"_s);
  stage.press(Qt::Key_Escape);
  stage.views().remote()->setFullScreen(true);
  stage.settle();
  stage.click(QCoreApplication::translate("TransportBar", "Playback speed"));
  stage.shot(u"full-screen-speeds"_s, u"A menu of the controls in full screen"_s);
  stage.press(Qt::Key_Escape);
  stage.views().remote()->setFullScreen(false);
  stage.settle();
  stage.views().transport()->chooseDelay(150);
  stage.click(QCoreApplication::translate("TransportBar", "Sound and picture"));
  stage.shot(u"delays"_s, u"The choice of how far the sound is behind the picture"_s);
  stage.press(Qt::Key_Escape);
  shell.backToBrowsing();

  stage.show(Section::shows);
  shell.selectRow(0);
  stage.until("the episodes", [&] { return stage.views().episodes()->rowCount() > 0; });
  stage.views().episodes()->play(0);
  stage.until("the opening", [&] { return pane.loading(); });
  TransportControls& transport = *stage.views().transport();
  stage.until("the picture", [&] { return playing() && transport.sliderEnd() > 1; });
  stage.views().remote()->setFullScreen(true);
  transport.beginSeek();
  transport.dragTo(transport.sliderEnd() * 0.95);
  transport.endSeek();
  stage.until("the offer", [&] { return stage.views().nextEpisode()->offered(); });
  stage.settle();
  stage.shot(u"next-episode"_s, u"Near the end of an episode the next one is offered"_s);
}

}  // namespace vantor::screens
