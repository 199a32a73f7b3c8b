#pragma once

#include <openssl/ssl.h>

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

#include "sim/connection.h"

namespace sim {

// Accepts connections on 127.0.0.1 and serves each in a thread of its own, so that held and endless
// answers never keep others waiting.
class Listener {
 public:
  using Serve = std::function<void(Connection&)>;

  // Port 0 takes a free one. Throws std::runtime_error when the port cannot be had.
  Listener(int port, SSL_CTX* tls, Serve serve);
  // Interrupts every connection and joins all threads.
  ~Listener();
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;

  int port() const { return port_; }
  int accepted() const { return accepted_; }
  int open() const { return open_; }
  void resetAccepted() { accepted_ = 0; }

 private:
  struct Worker {
    std::unique_ptr<Connection> connection;
    bool done = false;
    std::thread thread;
  };

  void acceptAll();
  void serveOne(Worker& worker);
  void joinFinished();

  int socket_;
  int port_ = 0;
  SSL_CTX* tls_;
  Serve serve_;
  std::atomic<bool> stopping_ = false;
  std::atomic<int> accepted_ = 0;
  std::atomic<int> open_ = 0;
  std::mutex mutex_;
  std::list<Worker> workers_;
  std::thread acceptor_;
};

}  // namespace sim
