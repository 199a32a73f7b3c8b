#include "sim/connection.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace sim {
namespace {

constexpr std::size_t largestHead = 64 * 1024;
constexpr std::chrono::milliseconds longestQuiet{60'000};

}  // namespace

Connection::Connection(int socket, SSL_CTX* tls) : socket_(socket) {
  const int on = 1;
  ::setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  ::setsockopt(socket_, SOL_SOCKET, SO_KEEPALIVE, &on, sizeof on);
  if (tls == nullptr) return;
  tls_.reset(SSL_new(tls));
  SSL_set_fd(tls_.get(), socket_);
}

Connection::~Connection() {
  ::close(socket_);
}

std::optional<std::string> Connection::readHead() {
  if (tls_ && !handshakeDone_) {
    if (!waitFor(POLLIN, longestQuiet) || SSL_accept(tls_.get()) != 1) return std::nullopt;
    handshakeDone_ = true;
  }
  std::size_t searched = 0;
  while (true) {
    const auto end = received_.find("\r\n\r\n", searched);
    if (end != std::string::npos) {
      std::string head = received_.substr(0, end + 2);
      received_.erase(0, end + 4);
      return head;
    }
    searched = received_.size() < 3 ? 0 : received_.size() - 3;
    if (received_.size() > largestHead || !fill()) return std::nullopt;
  }
}

bool Connection::fill() {
  if (!(tls_ && SSL_pending(tls_.get()) > 0) && !waitFor(POLLIN, longestQuiet)) return false;
  std::array<char, 16 * 1024> buffer;
  const auto count = tls_ ? SSL_read(tls_.get(), buffer.data(), buffer.size())
                          : ::recv(socket_, buffer.data(), buffer.size(), 0);
  if (count <= 0) return false;
  received_.append(buffer.data(), static_cast<std::size_t>(count));
  return true;
}

bool Connection::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto piece = bytes.substr(0, 256 * 1024);
    const auto count = tls_ ? SSL_write(tls_.get(), piece.data(), static_cast<int>(piece.size()))
                            : ::send(socket_, piece.data(), piece.size(), MSG_NOSIGNAL);
    if (count < 0 && !tls_ && errno == EINTR) continue;
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

bool Connection::pause(std::chrono::milliseconds duration) {
  return !waitFor(POLLRDHUP, duration);
}

void Connection::finish() {
  if (tls_ && handshakeDone_) SSL_shutdown(tls_.get());
}

void Connection::interrupt() {
  ::shutdown(socket_, SHUT_RDWR);
}

bool Connection::isLeft() const {
  pollfd entry{.fd = socket_, .events = POLLRDHUP, .revents = 0};
  return ::poll(&entry, 1, 0) > 0;
}

bool Connection::waitFor(short events, std::chrono::milliseconds timeout) {
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  while (true) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    pollfd entry{.fd = socket_, .events = events, .revents = 0};
    const int ready = ::poll(&entry, 1, left.count() > 0 ? static_cast<int>(left.count()) : 0);
    if (ready < 0 && errno == EINTR) continue;
    return ready != 0;
  }
}

}  // namespace sim
