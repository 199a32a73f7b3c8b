// From the request to play a channel to its first picture in the window, beside a bare libVLC
// program that shows the same source in a window of its own.
#include <QGuiApplication>

#include "measure.h"
#include "players.h"
#include "sim/library.h"
#include "sim/server.h"

using namespace Qt::StringLiterals;

namespace vantor::bench {
namespace {

constexpr int rounds = 9;

void bench(const char* name, const QUrl& address) {
  BarePlayer bare;
  OurPlayer ours;
  Times bareTimes;
  Times ourTimes;
  for (int i = 0; i < rounds; ++i) {
    bareTimes.add(Times::Milliseconds(bare.firstPicture(address)));
    bare.stop();
    rest();
    ourTimes.add(Times::Milliseconds(ours.firstPicture(address)));
    ours.stop();
    rest();
  }
  const double ratio = ourTimes.median() / bareTimes.median();
  row(std::string("play -> first picture in the window, ") + name, milliseconds(ourTimes.median()),
      "bare libVLC " + milliseconds(bareTimes.median()), factor(ratio) + " (1.3 x)", ratio <= 1.3);
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  sim::Options options;
  options.username = "user";
  options.password = "secret";
  options.mediaFolder = qEnvironmentVariable("VANTOR_SIM_MEDIA").toStdString();
  const sim::Server server(options);
  const QString channel = QString::fromStdString(server.url() + "/live/user/secret/" +
                                                 std::to_string(sim::entryId(sim::Kind::live, 0)));
  vantor::bench::bench("TS", QUrl(channel + u".ts"_s));
  vantor::bench::bench("HLS", QUrl(channel + u".m3u8"_s));
  return 0;
}
