// The processor time of playing: the program with its window around the picture, beside a Qt Quick
// window of the same size that holds the picture alone, and beside libVLC alone. Needs a display, a
// session bus and a secret service of its own.
#include <QCoreApplication>
#include <QDBusInterface>
#include <QDBusVariant>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include "measure.h"
#include "measured_process.h"
#include "saved_account.h"
#include "support/test_media.h"

namespace vantor::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int seconds = 6;
const QString panel = u"943,82,355x200"_s;
const QString windowSize = u"1320x820"_s;
const QString screenSize = u"1600x1000"_s;

struct Film {
  const char* name;
  const char* pictures;
};

/// The share of one core that the program takes once it plays, in percent.
double share(const QString& program, const QStringList& arguments, bool fullScreen = false) {
  QProcess process;
  process.start(program, arguments);
  process.waitForStarted();
  QThread::sleep(3);
  if (fullScreen) {
    QDBusInterface player(u"org.mpris.MediaPlayer2.vantor"_s, u"/org/mpris/MediaPlayer2"_s,
                          u"org.freedesktop.DBus.Properties"_s);
    player.call(u"Set"_s, u"org.mpris.MediaPlayer2"_s, u"Fullscreen"_s,
                QVariant::fromValue(QDBusVariant(true)));
  }
  // The controls over the picture are gone by then.
  QThread::sleep(5);
  const double before = processorSeconds(process);
  QThread::sleep(seconds);
  const double spent = processorSeconds(process) - before;
  end(process);
  return spent / seconds * 100;
}

std::string percent(double share) {
  char text[32];
  std::snprintf(text, sizeof text, "%.0f %% of a core", share);
  return text;
}

void tell(const std::string& what, double ours, double alone, double bare) {
  row("playing " + what, percent(ours),
      "picture alone " + percent(alone) + ", libVLC alone " + percent(bare),
      factor(ours / alone) + " (1.3 x)", ours <= 1.3 * alone);
}

void bench(const QString& folder, const Film& film) {
  const QString once = QDir(folder).filePath(u"once.mp4"_s);
  const QString file = QDir(folder).filePath(u"film.mp4"_s);
  QFile::remove(file);
  if (!test::makeMedia(QString::fromLatin1(film.pictures), once) ||
      !test::makeMedia(u"-stream_loop 30 -i %1 -c copy"_s.arg(once), file))
    throw std::runtime_error("ffmpeg failed");
  const QString player = playerProgram();
  const QString window = benchProgram("picture_window");
  const QString ours = u"ours"_s;
  const QString bare = u"bare"_s;
  const std::string name = film.name;
  tell(name + " in the panel", share(player, {file}),
       share(window, {ours, file, windowSize, panel}), share(window, {bare, file, u"355x200"_s}));
  tell(name + " in full screen", share(player, {file}, true),
       share(window, {ours, file, screenSize}), share(window, {bare, file, screenSize}));
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  using namespace vantor::bench;
  const SavedAccount account({.streams = false});
  account.saveCopy(vantor::LibraryKind::live, sim::Kind::live, 500);
  const QTemporaryDir folder;
  const Film films[] = {
      {"720p25",
       "-f lavfi -i testsrc2=size=1280x720:rate=25:duration=4 -pix_fmt yuv420p -b:v 2500k"},
      {"1080i50",
       "-f lavfi -i testsrc2=size=1920x1080:rate=50:duration=4 -vf tinterlace=interleave_top "
       "-flags +ilme+ildct -pix_fmt yuv420p -b:v 6000k"},
      {"2160p50 of 10 bits",
       "-f lavfi -i testsrc2=size=3840x2160:rate=50:duration=1 -pix_fmt yuv420p10le -c:v libx265 "
       "-preset ultrafast -x265-params log-level=none -tag:v hvc1 -b:v 15000k"},
  };
  for (const Film& film : films) bench(folder.path(), film);
  return 0;
}
