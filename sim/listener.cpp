#include "sim/listener.h"

#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>

namespace sim {
namespace {

int listenOn(int port) {
  const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const int on = 1;
  ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
      ::listen(socket, SOMAXCONN) != 0) {
    const std::string reason = std::strerror(errno);
    ::close(socket);
    throw std::runtime_error("cannot listen on port " + std::to_string(port) + ": " + reason);
  }
  return socket;
}

int portOf(int socket) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
  return ntohs(address.sin_port);
}

// OpenSSL writes without MSG_NOSIGNAL, and a library must not change the whole process's handling.
void blockBrokenPipeSignal() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

}  // namespace

Listener::Listener(int port, SSL_CTX* tls, Serve serve)
    : socket_(listenOn(port)), port_(portOf(socket_)), tls_(tls), serve_(std::move(serve)) {
  acceptor_ = std::thread([this] { acceptAll(); });
}

Listener::~Listener() {
  stopping_ = true;
  ::shutdown(socket_, SHUT_RDWR);
  acceptor_.join();
  ::close(socket_);
  {
    const std::lock_guard lock(mutex_);
    for (auto& worker : workers_) {
      if (worker.connection) worker.connection->interrupt();
    }
  }
  for (auto& worker : workers_) worker.thread.join();
}

void Listener::acceptAll() {
  while (!stopping_) {
    const int socket = ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
    if (socket < 0) {
      // Out of descriptors: closing connections will free some.
      if (errno == EMFILE || errno == ENFILE)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
      continue;
    }
    ++accepted_;
    ++open_;
    const std::lock_guard lock(mutex_);
    joinFinished();
    auto& worker = workers_.emplace_back();
    worker.connection = std::make_unique<Connection>(socket, tls_);
    worker.thread = std::thread([this, &worker] { serveOne(worker); });
  }
}

void Listener::serveOne(Worker& worker) {
  blockBrokenPipeSignal();
  serve_(*worker.connection);
  const std::lock_guard lock(mutex_);
  worker.connection.reset();
  worker.done = true;
  --open_;
}

void Listener::joinFinished() {
  workers_.remove_if([](Worker& worker) {
    if (worker.done) worker.thread.join();
    return worker.done;
  });
}

}  // namespace sim
