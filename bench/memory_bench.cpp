// What the player keeps resident with the largest account loaded, from the provider and from its
// copies, beside an empty Qt Quick window. Needs a display, a session bus and a secret service of
// its own.
#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QThread>

#include "measure.h"
#include "measured_process.h"
#include "net/http_transport.h"
#include "saved_account.h"

using namespace Qt::StringLiterals;

namespace vantor::bench {
namespace {

struct Resident {
  double now = 0;  // MB of 10^6 bytes
  double most = 0;
};

/// Waits until the process does nothing for two seconds.
void rest(const QProcess& process) {
  double before = -1;
  for (int i = 0; i < 60; ++i) {
    const double now = processorSeconds(process);
    if (now - before <= 0.02) return;
    before = now;
    QThread::sleep(2);
  }
}

Resident measure(const QString& program, const QStringList& sections) {
  QProcess process;
  process.start(program, QStringList());
  process.waitForStarted();
  QThread::sleep(2);
  rest(process);
  for (const QString& section : sections) {
    // The program that runs already is told.
    QProcess::execute(program, {u"--show"_s, section});
    QThread::sleep(2);
    rest(process);
  }
  const Resident result = {statusMegabytes(process, "VmRSS"), statusMegabytes(process, "VmHWM")};
  end(process);
  return result;
}

std::string text(double megabytes) {
  char line[32];
  std::snprintf(line, sizeof line, "%.0f MB", megabytes);
  return line;
}

void tell(const std::string& what, double measured, double empty, double budget) {
  row(what, text(measured), "empty window " + text(empty), "+ " + text(budget),
      measured - empty <= budget);
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  using namespace vantor::bench;
  const SavedAccount account(
      {.channels = 57'000, .movies = 178'000, .shows = 48'000, .streams = false});
  const QString player = playerProgram();
  const QStringList sections = {u"movies"_s, u"shows"_s, u"live"_s};
  const Resident empty = measure(benchProgram("empty_window"), {});
  const Resident fetched = measure(player, sections);
  const Resident copied = measure(player, sections);
  constexpr double largestAnswer = vantor::defaultBodyLimit / 1e6;  // that the program takes
  tell("283,000 entries loaded from the provider", fetched.now, empty.now, 160);
  tell("the same, most while loading", fetched.most, empty.now, 160 + largestAnswer);
  tell("the same from the copies", copied.now, empty.now, 160);
  tell("the same, most while loading", copied.most, empty.now, 160 + largestAnswer);
  return 0;
}
