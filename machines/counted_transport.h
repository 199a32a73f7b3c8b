#pragma once

#include "net/http_client.h"

namespace vantor::machine {

/// The program's transport, which knows what is under way.
class CountedTransport final : public HTTPTransport {
 public:
  int open = 0;
  /// Whether requests from now on soon give a silent provider up.
  bool impatient = false;

 private:
  QCoro::Task<QByteArray> transfer(HTTPRequest request, std::int64_t limit,
                                   std::stop_token token) override {
    ++open;
    HTTPClient& client = impatient ? impatient_ : patient_;
    const QCoro::Task<QByteArray> fetched = client.fetch(request, limit, token);
    try {
      QByteArray body = co_await fetched;
      --open;
      co_return body;
    } catch (...) {
      --open;
      throw;
    }
  }
  // What is left running does not end by itself before it is missed.
  static constexpr std::chrono::minutes forEver{10};
  HTTPClient patient_{{.withoutData = forEver, .inAll = forEver}};
  HTTPClient impatient_{{.withoutData = std::chrono::milliseconds(200)}};
};

}  // namespace vantor::machine
