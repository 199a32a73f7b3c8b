#include "net/http_client.h"

#include <map>

#include "net/bounded_transfer.h"
#include "platform/cancelled.h"
#include "platform/mailbox.h"
#include "platform/promise.h"

namespace vantor {

using namespace Qt::StringLiterals;

/// The transfers under way, by number; lives on the network thread.
class TransferThread final : public Mailbox {
 public:
  void start(std::uint64_t number, const HTTPRequest& request, std::int64_t limit,
             TransferTimes times, const std::shared_ptr<Promise<QByteArray>>& body) {
    auto transfer = std::make_unique<BoundedTransfer>(limit, times, body);
    transfer->onFinished = [this, number] {
      // Still inside the transfer's own call.
      post([this, number] { running_.erase(number); });
    };
    BoundedTransfer& started = *transfer;
    running_.emplace(number, std::move(transfer));
    started.start(request);
  }

  void cancel(std::uint64_t number) {
    const auto transfer = running_.find(number);
    if (transfer != running_.end()) transfer->second->cancel();
  }

 private:
  std::map<std::uint64_t, std::unique_ptr<BoundedTransfer>> running_;
};

HTTPClient::HTTPClient(TransferTimes times) : transfers_(new TransferThread), times_(times) {
  thread_.setObjectName(u"network"_s);
  transfers_->moveToThread(&thread_);
  QObject::connect(&thread_, &QThread::finished, transfers_, &QObject::deleteLater);
  thread_.start();
}

HTTPClient::~HTTPClient() {
  thread_.quit();
  thread_.wait();
}

QCoro::Task<QByteArray> HTTPClient::transfer(HTTPRequest request, std::int64_t limit,
                                             std::stop_token token) {
  throwIfStopped(token);
  const Pending<QByteArray> body;
  const std::uint64_t number = ++lastTransfer_;
  TransferThread* const transfers = transfers_;
  transfers->post([transfers, number, request, limit, times = times_,
                   promise = std::make_shared<Promise<QByteArray>>(body)] {
    transfers->start(number, request, limit, times, promise);
  });
  const std::stop_callback onStop(token, [transfers, number] {
    transfers->post([transfers, number] { transfers->cancel(number); });
  });
  QByteArray bytes = co_await body;
  co_return bytes;
}

}  // namespace vantor
