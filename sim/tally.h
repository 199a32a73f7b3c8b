#pragma once

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <string>

#include "sim/connection.h"
#include "sim/http.h"
#include "sim/server.h"

namespace sim {

// Counts what has been asked. Safe from any thread.
class Tally {
 public:
  // Counts a request, and that it is being answered for as long as it lives; `stream` is its
  // connection when it asks for a stream or for a piece of one.
  class Answering {
   public:
    Answering(Tally& tally, std::string action, const Request& request, const Connection* stream);
    ~Answering();
    Answering(const Answering&) = delete;
    Answering& operator=(const Answering&) = delete;

   private:
    Tally& tally_;
    std::string action_;
    const Connection* stream_;
  };

  // Counts an open stream for as long as it lives.
  class Streaming {
   public:
    Streaming(Tally& tally, const Connection& connection);
    ~Streaming();
    Streaming(const Streaming&) = delete;
    Streaming& operator=(const Streaming&) = delete;
    // Streams whose clients were still there when it opened, this one included.
    int count() const { return count_; }

   private:
    Tally& tally_;
    const Connection& connection_;
    int count_;
  };

  void countStray();
  int streamsOpen() const;
  Counters counters() const;
  void reset();
  bool waitForRequests(const std::string& action, int count,
                       std::chrono::milliseconds timeout) const;

 private:
  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  Counters counters_;
  std::set<const Connection*> pieces_;
  std::set<const Connection*> streams_;
  std::map<std::string, int> answering_;
};

}  // namespace sim
