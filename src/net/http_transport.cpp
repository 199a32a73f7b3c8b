#include "net/http_transport.h"

#include "platform/cancelled.h"

namespace vantor {

QCoro::Task<QByteArray> HTTPTransport::fetch(HTTPRequest request, std::int64_t limit,
                                             std::stop_token token) {
  const QCoro::Task<QByteArray> transferred = transfer(std::move(request), limit, token);
  QByteArray body = co_await transferred;
  throwIfStopped(token);
  co_return body;
}

}  // namespace vantor
