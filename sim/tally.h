#pragma once

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>

#include "sim/http.h"
#include "sim/server.h"

namespace sim {

// Counts what has been asked. Safe from any thread.
class Tally {
 public:
  // Counts a request, and that it is being answered for as long as it lives.
  class Answering {
   public:
    Answering(Tally& tally, std::string action, const Request& request);
    ~Answering();
    Answering(const Answering&) = delete;
    Answering& operator=(const Answering&) = delete;

   private:
    Tally& tally_;
    std::string action_;
  };

  // Counts an open stream for as long as it lives.
  class Streaming {
   public:
    explicit Streaming(Tally& tally);
    ~Streaming();
    Streaming(const Streaming&) = delete;
    Streaming& operator=(const Streaming&) = delete;
    // Open streams, this one included, when it opened.
    int count() const { return count_; }

   private:
    Tally& tally_;
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
  std::map<std::string, int> answering_;
};

}  // namespace sim
