#include "playback/libvlc_stop.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <vlc/vlc.h>

#include <QDir>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace vantor {

namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

// Both of real time, since libVLC's threads live in it.
constexpr auto longestStop = 1s;
constexpr auto betweenAttempts = 250ms;

/// Qt has its connections to servers kept alive, libVLC has not.
bool isOfLibVLC(int descriptor) {
  const auto option = [descriptor](int name) {
    int value = -1;
    socklen_t size = sizeof value;
    return ::getsockopt(descriptor, SOL_SOCKET, name, &value, &size) == 0 ? value : -1;
  };
  return option(SO_PROTOCOL) == IPPROTO_TCP && option(SO_ACCEPTCONN) == 0 &&
         option(SO_KEEPALIVE) == 0;
}

void shutConnections() {
  const QDir descriptors(u"/proc/self/fd"_s);
  for (const QString& name : descriptors.entryList(QDir::Files | QDir::System)) {
    const int descriptor = name.toInt();
    if (isOfLibVLC(descriptor)) ::shutdown(descriptor, SHUT_RDWR);
  }
}

}  // namespace

// libVLC reads the segments of a playlist on a thread that a stop waits for, and that waits for the
// server without a limit (adaptive, up to 3.0). Nothing of its interface ends that.
void stopPlayer(libvlc_media_player_t* player) {
  std::mutex mutex;
  std::condition_variable_any stopped;
  const std::jthread impatience([&](std::stop_token token) {
    std::unique_lock lock(mutex);
    auto patience = std::chrono::milliseconds(longestStop);
    while (!stopped.wait_for(lock, token, patience, [&] { return token.stop_requested(); })) {
      shutConnections();
      patience = betweenAttempts;
    }
  });
  libvlc_media_player_stop(player);
}

}  // namespace vantor
