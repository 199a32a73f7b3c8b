#pragma once

#include <QByteArray>
#include <QCoroTask>
#include <QUrl>
#include <chrono>
#include <cstdint>
#include <exception>
#include <stop_token>

#include "platform/app_error.h"
#include "platform/trace.h"

namespace vantor {

struct HTTPRequest {
  QUrl address;
  QByteArray userAgent;                                          // empty: Qt's own
  std::chrono::milliseconds timeout = std::chrono::seconds(60);  // without data
};

/// A completed exchange whose status is not a success.
struct HTTPFailure : std::exception, NumberedFailure {
  explicit HTTPFailure(int httpStatus) : status(httpStatus) {}
  const char* what() const noexcept override { return "HTTP failure"; }
  int number() const noexcept override { return status; }
  int status;
};

/// A request that the network, a time limit or a cancellation ended.
struct URLError : std::exception, NumberedFailure {
  enum class Code { cancelled, timedOut, unreachable };
  explicit URLError(Code reason) : code(reason) {}
  const char* what() const noexcept override { return "URL loading error"; }
  int number() const noexcept override { return static_cast<int>(code); }
  bool isCancellation() const noexcept override { return code == Code::cancelled; }
  Code code;
};

/// A body that is, or would become, larger than its limit.
struct OversizedBody : AppError {
  OversizedBody()
      : AppError(
            AppError::tr("The provider response is larger than this preview can safely load.")) {}
  using AppError::AppError;
};

inline constexpr std::int64_t defaultBodyLimit = 33'554'432;  // bytes

class HTTPTransport {
 public:
  virtual ~HTTPTransport() = default;

  /// Fetches a whole body of at most `limit` bytes, after decompression. Fails with `AppError`,
  /// `HTTPFailure`, `URLError` or `Cancelled`. Main thread only; a stop request ends the transfer,
  /// and a body that was already on its way is not given on: what it was for may be gone. Whatever
  /// comes of it, its connection is closed by then.
  QCoro::Task<QByteArray> fetch(HTTPRequest request, std::int64_t limit, std::stop_token token);

 private:
  virtual QCoro::Task<QByteArray> transfer(HTTPRequest request, std::int64_t limit,
                                           std::stop_token token) = 0;
};

}  // namespace vantor
