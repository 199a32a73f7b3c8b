#pragma once

#include <openssl/ssl.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

// One accepted connection, served by one thread.
class Connection {
 public:
  // Takes the socket over; `tls` may be null and must outlive the connection.
  Connection(int socket, SSL_CTX* tls);
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // The next request's head; nothing when the client has gone, says nothing for a minute, or sends
  // more than 64 KiB without ending it.
  std::optional<std::string> readHead();
  // Whether readHead stopped on bytes that were no head.
  bool leftUnread() const { return !received_.empty(); }

  // These are false once the client has gone or the connection was interrupted.
  bool write(std::string_view bytes);
  bool pause(std::chrono::milliseconds duration);
  // Says good-bye; without it a client that uses TLS sees the connection as cut off.
  void finish();

  // From any thread: makes every operation, also a waiting one, fail.
  void interrupt();
  // The client has hung up, or half of it. Safe from any thread while the connection lives.
  bool isLeft() const;

 private:
  bool fill();
  bool waitFor(short events, std::chrono::milliseconds timeout);

  int socket_;
  std::unique_ptr<SSL, decltype(&SSL_free)> tls_{nullptr, SSL_free};
  bool handshakeDone_ = false;
  std::string received_;
};

}  // namespace sim
