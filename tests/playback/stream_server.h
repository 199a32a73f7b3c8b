#pragma once

#include <QTcpServer>
#include <QUrl>

namespace vantor::test {

/// Answers every request on the loopback address with the same bytes, and remembers what was asked.
class StreamServer final : public QTcpServer {
 public:
  explicit StreamServer(QByteArray body);

  QUrl address(const QByteArray& encodedPath) const;

  int promised = -1;    // Content-Length, when it is not the body's
  bool stalls = false;  // says nothing more after the body, and does not hang up
  QByteArray type = "video/mp2t";
  struct Request {
    QByteArray target;
    QByteArray head;
  };
  QList<Request> requests;

 private:
  void answer(QTcpSocket* socket);

  QByteArray body_;
};

}  // namespace vantor::test
