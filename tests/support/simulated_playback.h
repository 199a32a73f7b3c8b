#pragma once

#include <QTemporaryDir>

#include "net/http_client.h"
#include "platform/worker.h"
#include "playback/libvlc_engine.h"
#include "playback/playback.h"
#include "playback/stream_keeper.h"
#include "support/quick_clock.h"
#include "support/simulated_streams.h"
#include "support/waiting.h"

namespace vantor::test {

/// The real engine under controller and keeper, in quicker time, with the simulator as the
/// provider.
struct SimulatedPlayback {
  const Settled settled;
  const bool silent = qputenv("VANTOR_AUDIO", "none");
  QTemporaryDir folder;
  const sim::Options options = simulated("viewer");
  sim::Server server{options};
  HTTPClient transport;
  QuickClock clock;
  Worker worker;
  std::shared_ptr<VideoFrameQueue> frames = std::make_shared<VideoFrameQueue>();
  LibVLCEngine engine{frames, Output::shown};
  Playback playback{engine, clock, worker, {.temporary = folder.path()}, Output::shown};
  StreamKeeper keeper{playback, engine, *frames, transport, clock};

  QUrl address(sim::Kind kind, long long id, const QString& extension) const {
    return streamOf(server, options, kind, id, extension);
  }
};

}  // namespace vantor::test
