#pragma once

#include <QHash>
#include <functional>
#include <memory>
#include <vector>

#include "net/http_transport.h"
#include "platform/pending.h"

namespace vantor::test {

/// A transport whose requests end when the test says so, in any order. Requests are named by their
/// "action" query item; the sign-in is "", any other address its file name.
class FakeTransport final : public HTTPTransport {
 public:
  struct Exchange {
    HTTPRequest request;
    std::int64_t limit = 0;
    QString action;
    bool cancelled = false;
    bool over = false;
    Pending<QByteArray> answer;
  };

  /// Every later request of `action` is answered at once.
  void always(const QString& action, const QByteArray& body) { bodies_.insert(action, body); }
  void onDemand(const QString& action) { bodies_.remove(action); }

  /// Ends the oldest open request of `action`; false when there is none.
  bool answer(const QString& action, const QByteArray& body);
  bool fail(const QString& action, std::exception_ptr error);
  template <class Error>
  bool fail(const QString& action, Error error) {
    return fail(action, std::make_exception_ptr(std::move(error)));
  }

  /// Whether a cancelled request ends at once; else it is open until it is ended, as a connection
  /// is that has yet to be closed.
  bool cancelsAtOnce = true;

  int requests(const QString& action) const { return count(action, false); }
  int open(const QString& action) const { return count(action, true); }
  const std::vector<std::shared_ptr<Exchange>>& exchanges() const { return exchanges_; }

 private:
  QCoro::Task<QByteArray> transfer(HTTPRequest request, std::int64_t limit,
                                   std::stop_token token) override;
  int count(const QString& action, bool onlyOpen) const;
  /// Takes the oldest open one; null when there is none.
  std::shared_ptr<Exchange> end(const QString& action);

  std::vector<std::shared_ptr<Exchange>> exchanges_;
  QHash<QString, QByteArray> bodies_;
};

}  // namespace vantor::test
