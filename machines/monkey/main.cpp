// A monkey that plays with the player: one run of steps, drawn from a seed or read from a file. It
// ends with status 1 when something did not hold, with a signal when the player crashed.
#include <sys/time.h>
#include <QCommandLineParser>
#include <QFile>
#include <QGuiApplication>
#include <QTextStream>

#include <ctime>

#include "machines/monkey/actions.h"
#include "machines/monkey/invariants.h"
#include "machines/monkey/subject.h"

namespace vantor::monkey {
namespace {

using namespace Qt::StringLiterals;

/// Milliseconds that this thread has kept a processor busy.
double busy() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Ends the process when what follows takes so many seconds of processor time: it has no end.
void allow(int seconds) {
  const itimerval limit{{}, {seconds, 0}};
  setitimer(ITIMER_PROF, &limit, nullptr);
}

/// Whether the step is one event and what follows from it, so that it makes one frame.
bool isOneFrame(const Step& step) {
  switch (step.act) {
    case Act::signIn:
    case Act::launch:
    case Act::pass:
    case Act::animate:
    case Act::hold:
    case Act::drag:
    case Act::watch:
    case Act::state:
    case Act::resize:
      return false;
    default:
      return true;
  }
}

std::vector<Step> readSteps(const QString& name) {
  QFile file(name);
  if (!file.open(QFile::ReadOnly)) qFatal("cannot read %s", qPrintable(name));
  std::vector<Step> steps;
  for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n'))
    if (const auto step = stepOf(line)) steps.push_back(*step);
  return steps;
}

int run(const std::vector<Step>& steps, QFile& trace) {
  QTextStream out(stdout);
  Subject subject;
  subject.start();
  double longest = 0;
  QString slowest;
  int slow = 0;
  const auto tell = [&](const QStringList& faults, const QString& when) {
    for (const QString& fault : faults) out << "FAULT " << fault << '\n';
    if (!faults.isEmpty()) out << "after " << when << Qt::endl;
    return !faults.isEmpty();
  };
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const QString line = lineOf(steps[i]);
    trace.write(line.toUtf8() + '\n');
    trace.flush();
    allow(30);
    const double begin = busy();
    perform(subject, steps[i]);
    const QString hang = subject.settleAll();
    const double took = busy() - begin;
    if (isOneFrame(steps[i])) {
      slow += took > 100;
      if (took > longest) {
        longest = took;
        slowest = line;
      }
    }
    QStringList faults = broken(subject);
    if (!hang.isEmpty()) faults.append(u"hang: "_s + hang);
    if (tell(faults, u"step %1, %2"_s.arg(i + 1).arg(line))) return 1;
    if (subject.ended || !subject.window().isVisible()) perform(subject, {Act::launch, 1, 0});
  }
  allow(60);
  trace.write("end\n");
  trace.flush();
  if (tell(left(subject), u"the end"_s)) return 1;
  out << steps.size() << " steps, longest frame " << qRound(longest) << " ms (" << slowest << "), "
      << slow << " over 100 ms\n";
  return 0;
}

int runAsAsked() {
  QCommandLineParser parser;
  parser.addOptions({{u"seed"_s, u"Draws the steps."_s, u"number"_s, u"1"_s},
                     {u"count"_s, u"So many."_s, u"number"_s, u"400"_s},
                     {u"steps"_s, u"Reads them instead."_s, u"file"_s},
                     {u"trace"_s, u"Writes each before it is done."_s, u"file"_s},
                     {u"list"_s, u"Only tells them."_s}});
  parser.addHelpOption();
  parser.process(*QCoreApplication::instance());
  const std::vector<Step> steps = parser.isSet(u"steps"_s) ? readSteps(parser.value(u"steps"_s))
                                                           : draw(parser.value(u"seed"_s).toUInt(),
                                                                  parser.value(u"count"_s).toInt());
  if (parser.isSet(u"list"_s)) {
    for (const Step& step : steps) QTextStream(stdout) << lineOf(step) << '\n';
    return 0;
  }
  QFile trace(parser.isSet(u"trace"_s) ? parser.value(u"trace"_s) : u"/dev/null"_s);
  if (!trace.open(QFile::WriteOnly)) qFatal("cannot write the trace");
  return run(steps, trace);
}

}  // namespace
}  // namespace vantor::monkey

int main(int argc, char** argv) {
  // Nothing depends on what the process happens to be.
  qputenv("QT_HASH_SEED", "0");
  qputenv("QSG_RENDER_LOOP", "basic");
  QGuiApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  return vantor::monkey::runAsAsked();
}
