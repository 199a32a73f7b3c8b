#include "stream_server.h"

#include <QTcpSocket>

namespace vantor::test {

StreamServer::StreamServer(QByteArray body) : body_(std::move(body)) {
  connect(this, &QTcpServer::newConnection, this, [this] {
    while (QTcpSocket* socket = nextPendingConnection()) {
      connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
      connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
  });
  listen(QHostAddress::LocalHost);
}

QUrl StreamServer::address(const QByteArray& encodedPath) const {
  return QUrl::fromEncoded("http://127.0.0.1:" + QByteArray::number(serverPort()) + encodedPath,
                           QUrl::StrictMode);
}

void StreamServer::answer(QTcpSocket* socket) {
  const QByteArray head = socket->peek(64 * 1024);
  if (!head.contains("\r\n\r\n")) return;
  socket->readAll();
  requests.append({head.split(' ').value(1), head});
  socket->write("HTTP/1.1 200 OK\r\nContent-Type: " + type +
                "\r\nConnection: close\r\nContent-Length: " +
                QByteArray::number(promised < 0 ? body_.size() : promised) + "\r\n\r\n" + body_);
  if (!stalls) socket->disconnectFromHost();
}

}  // namespace vantor::test
