#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "sim/fault.h"

namespace sim {

struct Options {
  // Distinct entries of each library; the answers hold a few more rows, with repeated ids.
  int channels = 24;
  int movies = 60;
  int shows = 12;
  std::string username = "demo";
  // Every character of it needs care in an address.
  std::string password = "p&ss w/rd=1+%\xC3\xA9#";
  // Where generated media is kept; empty: $XDG_CACHE_HOME/vantor-sim or ~/.cache/vantor-sim.
  std::string mediaFolder;
  // Without streams no media is made and stream paths answer 404.
  bool streams = true;
  bool tls = false;
  // 0 takes any free port.
  int port = 0;
  // In front of every path but the configuration's: empty or "/" and segments, such as "/base".
  std::string basePath;
  // Seconds since 1970, asked from any thread, for what the provider says of now; empty: the
  // system's.
  std::function<long long()> now;
};

// Options::mediaFolder, or the folder that stands for it when it is empty.
std::string mediaFolder(const Options& options);

// An action is "" (sign-in), an API action such as "get_live_streams", or "config", "live",
// "segment" (of a live playlist), "movie", "series", "poster", "unknown" for any other path.
struct Counters {
  std::map<std::string, int> requests;
  // Path and query as sent, of the last request.
  std::map<std::string, std::string> lastTarget;
  // Different ones among them.
  std::map<std::string, std::set<std::string>> targets;
  // Most requests of the action that were being answered at the same time.
  std::map<std::string, int> mostAtOnce;
  std::set<std::string> userAgents;
  int connectionsAccepted = 0;
  int connectionsOpen = 0;
  int streamsOpen = 0;
  // Most connections at the same time over which clients were getting streams, live playlists or
  // their segments.
  int mostStreamsAtOnce = 0;
  // Requests under another host name or port than url(), and bytes that were no request.
  int strays = 0;
};

// A made-up provider on 127.0.0.1. All functions may be called from any thread. One that finds the
// exact action set prefers it to "*", which stands for every action. What happens to a library's
// answers may be set for one category: "get_series/201".
class Server {
 public:
  // Listens when it returns. Throws std::runtime_error when it cannot listen or make the media;
  // making the media takes some seconds the first time.
  explicit Server(Options options = {});
  // Closes all connections, whatever they are doing, and waits for their threads.
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  int port() const;
  // Base address without a slash at its end, such as "http://127.0.0.1:8080".
  std::string url() const;
  std::string configUrl() const;
  // The self-signed certificate; empty without TLS.
  std::string certificatePem() const;

  void setFault(const std::string& action, Fault fault);
  // Answers exactly this with status 200, without looking at the log-in or at what the client
  // takes.
  void setBody(const std::string& action, std::string body,
               std::string contentType = "application/json", std::string contentEncoding = "");
  // Breaks each answer off, but those of channels, faults and all.
  void breakOff(const std::string& action, BreakOff how);
  // Ends setFault, setBody and breakOff of all actions.
  void reset();

  // Requests of the action are counted and then wait until it is released.
  void hold(const std::string& action);
  void release(const std::string& action);

  Counters counters() const;
  // Connections and streams that are open stay counted.
  void resetCounters();
  // Waits until so many requests of the action have come; false when they have not in time.
  bool waitForRequests(const std::string& action, int count,
                       std::chrono::milliseconds timeout = std::chrono::seconds(10)) const;

  // A generated file for direct use: see media.h for the names. Needs Options::streams.
  std::string mediaPath(const std::string& name) const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace sim
