#pragma once

#include <QThread>

#include "net/http_transport.h"

namespace vantor {

/// The limits in time of every transfer.
struct TransferTimes {
  std::chrono::milliseconds withoutData = std::chrono::seconds(25);
  std::chrono::milliseconds inAll = std::chrono::seconds(90);
};

class TransferThread;

/// Fetches over HTTP and HTTPS, each body in a session of its own that keeps no cookies, cache or
/// credentials. The network runs on a thread of the client; destroying it ends every transfer.
class HTTPClient final : public HTTPTransport {
 public:
  explicit HTTPClient(TransferTimes times = {});
  ~HTTPClient() override;

 private:
  QCoro::Task<QByteArray> transfer(HTTPRequest request, std::int64_t limit,
                                   std::stop_token token) override;

  QThread thread_;
  TransferThread* transfers_;  // lives on thread_, which deletes it
  TransferTimes times_;
  std::uint64_t lastTransfer_ = 0;
};

}  // namespace vantor
