#pragma once

#include <QNetworkAccessManager>
#include <QTimer>
#include <functional>
#include <memory>

#include "net/http_client.h"
#include "net/unpacking.h"
#include "platform/promise.h"

class QNetworkReply;

namespace vantor {

/// One transfer, used once, confined to the network thread. Its result is settled when it is
/// destroyed and its connection closed, with a cancellation when that is before its end.
class BoundedTransfer final : public QObject {
  Q_OBJECT
 public:
  BoundedTransfer(std::int64_t limit, TransferTimes times,
                  std::shared_ptr<Promise<QByteArray>> body);
  ~BoundedTransfer() override;

  void start(const HTTPRequest& request);
  void cancel();

  /// Called once, when there is a result to settle.
  std::function<void()> onFinished;

 private:
  /// Settles the result when all that is declared after it is gone.
  struct Outcome {
    ~Outcome();
    std::shared_ptr<Promise<QByteArray>> promise;
    QByteArray body = {};
    std::exception_ptr failure = {};
  };

  void send(const QUrl& address);
  void receiveHead();
  void receiveData();
  template <class Write>
  qsizetype append(const Write& write);
  void complete();
  bool followsRedirect();
  void finish(QByteArray bytes);
  void fail(std::exception_ptr error);
  void end();

  const std::int64_t limit_;
  const TransferTimes times_;
  Outcome outcome_;
  HTTPRequest request_;
  QNetworkAccessManager session_;
  QTimer withoutData_;
  QTimer inAll_;
  std::unique_ptr<QNetworkReply, void (*)(QNetworkReply*)> reply_;
  std::unique_ptr<Unpacking> unpacking_;  // absent for a body that comes as it is
  bool packedBegun_ = false;
  QByteArray bytes_;
  int status_ = 0;
  int redirects_ = 0;
  bool finished_ = false;
};

}  // namespace vantor
