#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "sim/broadcast.h"
#include "sim/connection.h"
#include "sim/fault.h"
#include "sim/http.h"
#include "sim/provider.h"

namespace sim {

// The channels, movies and episodes behind the playback addresses. Safe from any thread.
class Streams {
 public:
  // `folder` is what prepareMedia returned. Throws std::runtime_error when a channel cannot be
  // read.
  explicit Streams(std::string folder);

  // A channel as endless transport stream: at once from a key picture two to three seconds ago,
  // then as time goes by. Returns when the client goes, or the fault ends it.
  void sendChannel(Connection& connection, int channel, Fault fault) const;
  // The playlist of a channel: its newest six segments, at `base`/segment/ID/NUMBER.ts.
  Response playlist(const std::string& id, const std::string& base) const;
  // The segment of such a playlist; 404 for one that is not on the list, or just was.
  Response segment(int channel, const std::string& file) const;
  // The whole file of a movie or an episode; 404 for an extension that is not there.
  Response film(const Provider::Item& item);

  const std::string& folder() const { return folder_; }

 private:
  std::int64_t currentPicture() const;
  const Broadcast& broadcast(int channel) const;

  std::string folder_;
  std::chrono::steady_clock::time_point began_;
  std::vector<Broadcast> broadcasts_;
  std::mutex filesMutex_;
  std::map<std::string, std::shared_ptr<const std::string>> files_;
};

}  // namespace sim
