// How soon keys are answered while the provider answers, does not, or takes its time. Needs a
// display and a secret service of its own.
#include <QGuiApplication>
#include <QQuickStyle>
#include <QQuickWindow>
#include <vector>

#include "frame_watch.h"
#include "measure.h"
#include "screens/stage.h"

using namespace Qt::StringLiterals;

namespace vantor::bench {
namespace {

struct Key {
  Qt::Key key;
  Qt::KeyboardModifiers modifiers = Qt::NoModifier;
  int times = 1;
};

/// Through the sections, and into a show and out again.
const std::vector<Key> throughSections = {
    {Qt::Key_1, Qt::ControlModifier},
    {Qt::Key_Down, Qt::NoModifier, 30},
    {Qt::Key_PageDown, {}, 20},
    {Qt::Key_2, Qt::ControlModifier},
    {Qt::Key_Right, {}, 8},
    {Qt::Key_Down, Qt::NoModifier, 12},
    {Qt::Key_PageDown, {}, 8},
    {Qt::Key_3, Qt::ControlModifier},
    {Qt::Key_Down, {}, 4},
    {Qt::Key_Return},
    {Qt::Key_Down, {}, 3},
    {Qt::Key_Escape},
};

/// From the field of the search, which is chosen by the sidebar: a text, what it found, and back.
const std::vector<Key> inSearch = {
    {Qt::Key_N},
    {Qt::Key_E},
    {Qt::Key_Return},
    {Qt::Key_Down, {}, 4},
    {Qt::Key_1, Qt::ControlModifier},
    {Qt::Key_PageUp, {}, 10},
};

struct Answers {
  Times all;
  QString slowest;
};

void press(QQuickWindow& window, const std::vector<Key>& keys, Answers& answers) {
  FrameWatch watch(window);
  for (const Key& key : keys)
    for (int i = 0; i < key.times; ++i) {
      const auto frame =
          watch.after([&] { QTest::keyClick(&window, key.key, key.modifiers); }, 100);
      if (frame.prepared.count() > answers.all.worst())
        answers.slowest = QKeySequence(key.key | key.modifiers).toString();
      answers.all.add(frame.prepared);
    }
}

Answers press(screens::Stage& stage) {
  Answers answers;
  press(stage.window(), throughSections, answers);
  stage.show(Section::search);
  press(stage.window(), inSearch, answers);
  return answers;
}

std::string slowest(const Answers& answers) {
  return milliseconds(answers.all.worst()) + " (" + answers.slowest.toStdString() + ")";
}

void tell(const std::string& what, const Answers& answers, const Answers& usual) {
  const double ratio = answers.all.worst() / usual.all.worst();
  row("keys while the provider " + what + ": slowest", slowest(answers),
      "answering " + slowest(usual), factor(ratio) + " (1.3 x)", ratio <= 1.3);
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  QQuickStyle::setStyle(u"Basic"_s);
  using namespace vantor;
  using namespace vantor::bench;
  screens::Album album;
  screens::Stage stage(album,
                       {.channels = 57'000, .movies = 178'000, .shows = 48'000, .streams = false});
  stage.signIn();
  for (const Section section : {Section::movies, Section::shows, Section::live})
    stage.show(section);
  const Answers first = press(stage);
  const Answers usual = press(stage);
  const auto during = [&](sim::Fault fault) {
    stage.provider().setFault("*", fault);
    return press(stage);
  };
  row("keys through all sections: slowest", slowest(first),
      "again " + slowest(usual) + ", typical " + milliseconds(usual.all.median()),
      milliseconds(frameTime), first.all.worst() <= frameTime);
  tell("answers nothing", during(sim::Fault::silent), usual);
  tell("answers slowly", during(sim::Fault::slow), usual);
  return 0;
}
