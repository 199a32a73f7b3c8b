#pragma once

#include <array>
#include <mutex>
#include <optional>
#include <string>

#include "sim/fault.h"
#include "sim/http.h"
#include "sim/library.h"
#include "sim/server.h"

namespace sim {

// Answers the player API, the configuration and the posters. Safe from any thread.
class Provider {
 public:
  // `origin` is scheme, host and port.
  Provider(const Options& options, std::string origin);

  // The request's action as Counters names it, "unknown" outside the base path as well.
  std::string actionOf(const Request& request) const;
  // Answers every action but those of streams. `fault` changes the account's state, and
  // whether a category is heeded.
  Response answer(const Request& request, const std::string& action, Fault fault, int streamsOpen);

  // What "/live/USER/PASSWORD/ID.EXTENSION" and its like ask for; nothing for the wrong log-in or
  // an entry that the library does not have.
  struct Item {
    Kind kind;
    // Of the channel or movie; for an episode its show's.
    int index;
    std::string id;
    std::string extension;
  };
  std::optional<Item> item(const Request& request) const;

  const std::string& origin() const { return origin_; }

 private:
  std::size_t depth() const { return baseSegments_.size(); }
  long long now() const;
  int count(Kind kind) const;
  bool loginIsRight(const std::string& username, const std::string& password) const;
  std::string signInJson(Fault fault, int streamsOpen) const;
  std::shared_ptr<const std::string> rows(Kind kind, const std::string& category);
  Response apiAnswer(const Request& request, const std::string& action, Fault fault,
                     int streamsOpen);
  Response posterAnswer(const Request& request) const;

  Options options_;
  std::string origin_;
  std::vector<std::string> baseSegments_;
  std::mutex rowsMutex_;
  std::array<std::shared_ptr<const std::string>, 3> rows_;
};

}  // namespace sim
