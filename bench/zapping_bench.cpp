// From one channel to the first picture of the next, where broadcasts come as they are sent: in
// real time, from the middle between two key pictures, over a network that takes its time. Beside a
// bare libVLC program, and beside the arrival of the key picture, before which there is nothing to
// show. VANTOR_CHANGES says how many changes of each kind (8).
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cmath>
#include <map>

#include "measure.h"
#include "players.h"
#include "sim/broadcast.h"
#include "sim/http.h"
#include "sim/listener.h"
#include "support/test_media.h"

using namespace Qt::StringLiterals;

namespace vantor::bench {
namespace {

using std::chrono::milliseconds;
constexpr int pictureTime = 40;  // ms

/// What is changed to: how many pictures from key picture to key picture, and how long the network
/// takes for a request and its answer.
struct Kind {
  int keyPictures;
  int delay;  // ms
};

/// Sends each broadcast as "/key pictures/delay/first picture"; those that begin with an odd
/// picture look different from the others, so that each change can be seen.
class Station {
 public:
  explicit Station(const QString& folder) {
    for (const int key : {12, 25, 50}) {
      for (const bool odd : {false, true}) {
        const QString file = folder + u"/%1-%2.ts"_s.arg(key).arg(odd);
        if (!test::makeMedia(recipe(key, odd), file)) throw std::runtime_error("ffmpeg failed");
        broadcasts_.try_emplace({key, odd}, file.toStdString());
      }
    }
  }

  QUrl address(const Kind& kind, int firstPicture) const {
    return QUrl(u"http://127.0.0.1:%1/%2/%3/%4.ts"_s.arg(listener_.port())
                    .arg(kind.keyPictures)
                    .arg(kind.delay)
                    .arg(firstPicture));
  }

 private:
  static QString recipe(int keyPictures, bool odd) {
    return u"-f lavfi -i testsrc2=size=1280x720:rate=25,hue=h=%2 -f lavfi -i "
           u"sine=sample_rate=48000 "
           "-c:v libx264 -preset ultrafast -pix_fmt yuv420p -g %1 -keyint_min %1 -sc_threshold 0 "
           "-bf 0 -b:v 2500k -frames:v 400 -c:a aac -frames:a 750 -f mpegts "
           "-mpegts_flags +pat_pmt_at_frames"_s.arg(keyPictures)
               .arg(odd ? 150 : 0);
  }

  void send(sim::Connection& connection) const {
    const auto head = connection.readHead();
    int key = 0;
    int delay = 0;
    int number = 0;
    if (!head || std::sscanf(head->c_str(), "GET /%d/%d/%d.ts", &key, &delay, &number) != 3 ||
        !broadcasts_.contains({key, number % 2 == 1}))
      return;
    // To connect, and to ask.
    if (!connection.pause(milliseconds(2 * delay)) ||
        !connection.write("HTTP/1.1 200 OK\r\nContent-Type: video/mp2t\r\n\r\n"))
      return;
    const sim::Broadcast& broadcast = broadcasts_.at({key, number % 2 == 1});
    auto next = std::chrono::steady_clock::now();
    while (connection.write(broadcast.picture(number++))) {
      next += milliseconds(pictureTime);
      const auto wait = next - std::chrono::steady_clock::now();
      if (!connection.pause(std::max(milliseconds(0), std::chrono::ceil<milliseconds>(wait))))
        return;
    }
  }

  std::map<std::pair<int, bool>, sim::Broadcast> broadcasts_;
  sim::Listener listener_{0, nullptr, [this](sim::Connection& connection) { send(connection); }};
};

void bench(const Station& station, const Kind& kind, int changes) {
  BarePlayer bare;
  OurPlayer ours;
  Times bareTimes;
  Times ourTimes;
  Times limits;
  for (int i = 0; i <= changes; ++i) {
    // Everywhere between two key pictures, from change to change.
    const int place = 1 + (i * 37) % (kind.keyPictures - 1);
    const int first = place - (place + i) % 2;
    const QUrl address = station.address(kind, first);
    const double bareTime = bare.firstPicture(address);
    const double ourTime = ours.firstPicture(address);
    // The first is no change.
    if (i == 0) continue;
    bareTimes.add(Times::Milliseconds(bareTime));
    ourTimes.add(Times::Milliseconds(ourTime));
    limits.add(Times::Milliseconds(2 * kind.delay + (kind.keyPictures - first) * pictureTime));
  }
  char what[80];
  std::snprintf(what, sizeof what,
                "zapping, key pictures %.1f s, network %d ms: ", kind.keyPictures / 25.0,
                kind.delay);
  const auto tell = [&](const char* which, double our, double other, double limit) {
    const double ratio = our / other;
    row(std::string(what) + which, vantor::bench::milliseconds(our),
        "bare " + vantor::bench::milliseconds(other) + ", limit " +
            vantor::bench::milliseconds(limit),
        factor(ratio) + " (1.05 x)", ratio <= 1.05);
  };
  tell("median", ourTimes.median(), bareTimes.median(), limits.median());
  tell("95 of 100", ourTimes.high(), bareTimes.high(), limits.high());
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  using namespace vantor::bench;
  const QTemporaryDir folder;
  const Station station(folder.path());
  const int asked = qEnvironmentVariableIntValue("VANTOR_CHANGES");
  for (const Kind& kind : {Kind{12, 80}, Kind{25, 80}, Kind{50, 80}, Kind{25, 20}, Kind{25, 200}})
    bench(station, kind, asked > 0 ? asked : 8);
  return 0;
}
