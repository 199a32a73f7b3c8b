#include <QCoreApplication>
#include <QEventLoop>
#include <QTcpServer>
#include <QTcpSocket>

#include "cost.h"
#include "input.h"
#include "net/bounded_transfer.h"
#include "support/awaited.h"

using namespace Qt::StringLiterals;
using namespace vantor;

namespace {

constexpr std::int64_t bodyLimit = 65'536;

/// Answers every request with the same bytes.
class Provider {
 public:
  Provider() {
    server_.listen(QHostAddress::LocalHost);
    QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
      QTcpSocket* const socket = server_.nextPendingConnection();
      QObject::connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
      QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
        if (!socket->readAll().endsWith("\r\n\r\n")) return;
        socket->write(answer);
        socket->disconnectFromHost();
      });
    });
  }
  QUrl address() const { return QUrl(u"http://127.0.0.1:%1/"_s.arg(server_.serverPort())); }
  QByteArray answer;

 private:
  QTcpServer server_;
};

/// Bodies come packed in the way that the first byte says; with 4 they are all that comes.
QByteArray answerOf(const QByteArray& bytes) {
  static constexpr std::array encodings{"gzip", "deflate", "br", "zstd"};
  if (bytes.isEmpty()) return {};
  const auto which = static_cast<unsigned char>(bytes[0]) % 5u;
  if (which == encodings.size()) return bytes.mid(1);
  return "HTTP/1.1 200 OK\r\nContent-Encoding: " + QByteArray(encodings[which]) + "\r\n\r\n" +
         bytes.mid(1);
}

void transfer(const QByteArray& bytes) {
  static Provider& provider = *new Provider;  // which ends with the process, as Qt's threads do
  provider.answer = answerOf(bytes);
  const Pending<QByteArray> body;
  {
    // Of some broken answers nothing comes any more; waiting for that takes no processor's time.
    BoundedTransfer transfer(bodyLimit, {.withoutData = std::chrono::milliseconds(100)},
                             std::make_shared<Promise<QByteArray>>(body));
    QEventLoop waiting;
    transfer.onFinished = [&] { waiting.quit(); };
    transfer.start({.address = provider.address()});
    waiting.exec();
  }
  try {
    mustHold(test::awaited<QByteArray>(body).size() <= bodyLimit);
  } catch (const AppError&) {
  } catch (const HTTPFailure&) {
  } catch (const URLError&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static int count = 1;
  static char name[] = "fuzz";
  static char* arguments[] = {name, nullptr};
  static const auto* const application = new QCoreApplication(count, arguments);
  mustHold(application != nullptr);
  static Yardstick yardstick(
      Harmless{"\4HTTP/1.1 200 OK\r\n\r\n", "abcdefghijklmnopqrstuvwxyz", ""}, transfer);
  const qsizetype memory = yardstick.measure(inputBytes(data, size), 4 * bodyLimit);
  // The decoders have windows of up to 16 MiB.
  mustHold(memory <= 25'165'824 + 16 * static_cast<qsizetype>(size));
  return 0;
}
