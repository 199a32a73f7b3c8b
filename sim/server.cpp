#include "sim/server.h"

#include <array>
#include <atomic>
#include <mutex>
#include <optional>
#include <stdexcept>

#include "sim/certificate.h"
#include "sim/delivery.h"
#include "sim/listener.h"
#include "sim/media.h"
#include "sim/names.h"
#include "sim/provider.h"
#include "sim/script.h"
#include "sim/stream.h"
#include "sim/tally.h"

namespace sim {
namespace {

std::unique_ptr<Streams> makeStreams(const Options& options) {
  if (!options.streams) return nullptr;
  return std::make_unique<Streams>(prepareMedia(mediaFolder(options)));
}

bool isStream(const std::string& action) {
  return action == "live" || action == "movie" || action == "series" || action == "segment";
}

// What happens to the request of that number.
Fault mishap(unsigned number) {
  constexpr std::array mishapFaults{Fault::status503, Fault::status503, Fault::empty,
                                    Fault::notHttp,   Fault::cutOff,    Fault::cutOff,
                                    Fault::cutOff,    Fault::cutOff};
  return mishapFaults.at(scatter(number, 90) % mishapFaults.size());
}

std::string origin(bool tls, const std::string& host, int port) {
  return (tls ? "https://" : "http://") + host + ":" + std::to_string(port);
}

}  // namespace

std::string mediaFolder(const Options& options) {
  return options.mediaFolder.empty() ? defaultMediaFolder() : options.mediaFolder;
}

struct Server::Parts {
  explicit Parts(Options given)
      : options(std::move(given)),
        certificate(options.tls ? std::make_unique<Certificate>() : nullptr),
        streams(makeStreams(options)) {
    // Nothing is served before everything is there.
    const std::lock_guard lock(startMutex);
    auto* context = certificate ? certificate->context() : nullptr;
    listener = std::make_unique<Listener>(options.port, context,
                                          [this](Connection& connection) { serve(connection); });
    otherListener = std::make_unique<Listener>(
        0, context, [this](Connection& connection) { serve(connection); });
    const int port = listener->port();
    origins = {.own = origin(options.tls, "127.0.0.1", port),
               .otherPort = origin(options.tls, "127.0.0.1", otherListener->port()),
               .otherHost = origin(options.tls, "localhost", port),
               .otherScheme = origin(!options.tls, "127.0.0.1", port)};
    provider.emplace(options, origins.own);
  }

  void serve(Connection& connection);
  bool respond(Connection& connection, const Request& request, const std::string& action);
  bool respondWithStream(Connection& connection, const Request& request, const std::string& action,
                         const Trouble& trouble);
  bool waitWhileHeld(Connection& connection, const std::string& action) const;

  Options options;
  std::unique_ptr<Certificate> certificate;
  std::unique_ptr<Streams> streams;
  Script script;
  Tally tally;
  std::atomic<unsigned> mishaps = 0;
  Origins origins;
  std::optional<Provider> provider;
  std::mutex startMutex;
  // Last, so that their threads end before what they use.
  std::unique_ptr<Listener> listener;
  std::unique_ptr<Listener> otherListener;
};

void Server::Parts::serve(Connection& connection) {
  { const std::lock_guard started(startMutex); }
  while (const auto head = connection.readHead()) {
    const auto request = parseRequest(*head);
    if (!request || !origins.own.ends_with("//" + request->header("host"))) {
      tally.countStray();
    }
    if (!request) return;
    const auto action = provider->actionOf(*request);
    const Tally::Answering answering(tally, action, *request,
                                     isStream(action) ? &connection : nullptr);
    if (!waitWhileHeld(connection, action)) return;
    if (!respond(connection, *request, action)) break;
  }
  if (connection.leftUnread()) tally.countStray();
}

bool Server::Parts::waitWhileHeld(Connection& connection, const std::string& action) const {
  while (script.isHeld(action)) {
    if (!connection.pause(std::chrono::milliseconds(5))) return false;
  }
  return true;
}

bool Server::Parts::respond(Connection& connection, const Request& request,
                            const std::string& action) {
  if (request.method != "GET" && request.method != "HEAD") {
    deliver(connection, request, errorResponse(405), {}, origins);
    return false;
  }
  const std::vector<std::string> actions{action + "/" + request.queryValue("category_id"), action,
                                         "*"};
  auto fault = script.fault(actions);
  if (fault == Fault::unsteady) fault = mishap(mishaps++);
  const Trouble trouble{fault, script.breakOff(actions)};
  if (const auto body = script.body(action)) {
    return deliver(connection, request, *body, trouble, origins);
  }
  if (isStream(action)) return respondWithStream(connection, request, action, trouble);
  const auto response = provider->answer(request, action, fault, tally.streamsOpen());
  return deliver(connection, request, response, trouble, origins);
}

bool Server::Parts::respondWithStream(Connection& connection, const Request& request,
                                      const std::string& action, const Trouble& trouble) {
  const auto fault = trouble.fault;
  const auto send = [&](const Response& response) {
    return deliver(connection, request, response, trouble, origins);
  };
  if (!streams) return send(errorResponse(404));
  if (action == "segment") {
    const auto& segments = request.segments;
    const auto index = entryIndex(Kind::live, segments[segments.size() - 2], options.channels);
    return send(index ? streams->segment(*index, segments.back()) : errorResponse(404));
  }
  const auto item = provider->item(request);
  if (!item) return send(errorResponse(404));
  if (item->extension == "m3u8" && item->kind == Kind::live) {
    return send(streams->playlist(item->id, options.basePath));
  }
  const Tally::Streaming streaming(tally, connection);
  if (fault == Fault::expiredAccount ||
      (fault == Fault::connectionLimit && streaming.count() > 1)) {
    return send(errorResponse(403));
  }
  if (item->kind != Kind::live) return send(streams->film(*item));
  if (item->extension != "ts") return send(errorResponse(404));
  switch (fault) {
    case Fault::none:
    case Fault::slow:
    case Fault::cutOff:
    case Fault::connectionLimit:
      streams->sendChannel(connection, item->index, fault);
      return false;
    default:
      break;
  }
  if (wasRedirected(request) && fault != Fault::redirectLoop) {
    streams->sendChannel(connection, item->index, Fault::none);
    return false;
  }
  return send({.contentType = "video/mp2t"});
}

Server::Server(Options options) : parts_(std::make_unique<Parts>(std::move(options))) {}
Server::~Server() = default;

int Server::port() const {
  return parts_->listener->port();
}
std::string Server::url() const {
  return parts_->origins.own + parts_->options.basePath;
}
std::string Server::configUrl() const {
  return parts_->origins.own + "/vantor-config.json";
}
std::string Server::certificatePem() const {
  return parts_->certificate ? parts_->certificate->pem() : std::string();
}

void Server::setFault(const std::string& action, Fault fault) {
  parts_->script.setFault(action, fault);
}

void Server::setBody(const std::string& action, std::string body, std::string contentType,
                     std::string contentEncoding) {
  auto response = textResponse(200, std::move(body), std::move(contentType));
  if (!contentEncoding.empty()) {
    response.headers.emplace_back("Content-Encoding", std::move(contentEncoding));
  }
  parts_->script.setBody(action, std::move(response));
}

void Server::breakOff(const std::string& action, BreakOff how) {
  parts_->script.breakOff(action, how);
}

void Server::reset() {
  parts_->script.reset();
}
void Server::hold(const std::string& action) {
  parts_->script.hold(action);
}
void Server::release(const std::string& action) {
  parts_->script.release(action);
}

Counters Server::counters() const {
  auto counters = parts_->tally.counters();
  counters.connectionsAccepted = parts_->listener->accepted() + parts_->otherListener->accepted();
  counters.connectionsOpen = parts_->listener->open() + parts_->otherListener->open();
  return counters;
}

void Server::resetCounters() {
  parts_->tally.reset();
  parts_->listener->resetAccepted();
  parts_->otherListener->resetAccepted();
}

bool Server::waitForRequests(const std::string& action, int count,
                             std::chrono::milliseconds timeout) const {
  return parts_->tally.waitForRequests(action, count, timeout);
}

std::string Server::mediaPath(const std::string& name) const {
  if (!parts_->streams) throw std::runtime_error("the simulator was started without streams");
  return parts_->streams->folder() + "/" + name;
}

}  // namespace sim
