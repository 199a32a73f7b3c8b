// From the start of the process to the first frame on the display that is complete, with the logo
// and the channels of a saved account, beside the first frame of an empty Qt Quick window. Needs a
// display and a secret service of its own.
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QThread>

#include "measure.h"
#include "measured_process.h"
#include "saved_account.h"

namespace vantor::bench {
namespace {

constexpr int rounds = 7;
constexpr int channels = 50'000;
// A place across every row of the list, past its texts; one across the logo; one in the empty
// window.
constexpr int listColumn = 436;
constexpr int logoColumn = 88;
constexpr int emptyColumn = 700;

QImage shownIn(int column) {
  QScreen* const screen = QGuiApplication::primaryScreen();
  return screen->grabWindow(0, column, 0, 1, screen->size().height()).toImage();
}

/// Whether the display shows rows of the list: two colours that only rows have, in turns, down a
/// column that crosses them.
bool listsRows() {
  const QImage column = shownIn(listColumn);
  int rows = 0;
  bool inRow = false;
  for (int y = 0; y < column.height(); ++y) {
    const bool row = column.pixelColor(0, y) == QColor(0x1F, 0x29, 0x2E);
    rows += row && !inRow ? 1 : 0;
    inRow = row;
  }
  return rows >= 8;
}

/// Its mint, which nothing else in that column has.
bool hasLogo() {
  const QImage column = shownIn(logoColumn);
  for (int y = 0; y < column.height(); ++y) {
    const QColor color = column.pixelColor(0, y);
    if (color.green() > 150 && color.red() < 130) return true;
  }
  return false;
}

bool isComplete() {
  return listsRows() && hasLogo();
}

bool isFilled() {
  const QImage column = shownIn(emptyColumn);
  return column.pixelColor(0, column.height() / 2) == QColor(0x1F, 0x29, 0x2E);
}

double untilShown(const QString& program, bool (*shown)()) {
  QProcess process;
  QElapsedTimer timer;
  timer.start();
  process.start(program, QStringList());
  process.waitForStarted();
  while (timer.elapsed() < 20'000 && !shown()) QThread::msleep(2);
  const double time = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  end(process);
  return time;
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  using namespace vantor::bench;
  const SavedAccount account({.streams = false});
  account.saveCopy(vantor::LibraryKind::live, sim::Kind::live, channels);
  const QString empty = benchProgram("empty_window");
  const QString player = playerProgram();
  Times emptyTimes;
  Times playerTimes;
  for (int i = 0; i < rounds; ++i) {
    emptyTimes.add(Times::Milliseconds(untilShown(empty, isFilled)));
    playerTimes.add(Times::Milliseconds(untilShown(player, isComplete)));
  }
  const double ratio = playerTimes.median() / emptyTimes.median();
  row("launch with 50,000 channels -> complete first frame", milliseconds(playerTimes.median()),
      "empty window " + milliseconds(emptyTimes.median()), factor(ratio) + " (1.4 x)",
      ratio <= 1.4);
  return 0;
}
