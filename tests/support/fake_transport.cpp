#include "support/fake_transport.h"

#include <QUrlQuery>
#include <algorithm>

namespace vantor::test {

QCoro::Task<QByteArray> FakeTransport::transfer(HTTPRequest request, std::int64_t limit,
                                                std::stop_token token) {
  auto exchange = std::make_shared<Exchange>();
  exchange->request = request;
  exchange->limit = limit;
  exchange->action = request.address.fileName() == QLatin1String("player_api.php")
                         ? QUrlQuery(request.address).queryItemValue(QStringLiteral("action"))
                         : request.address.fileName();
  exchanges_.push_back(exchange);
  if (bodies_.contains(exchange->action)) {
    exchange->over = true;
    exchange->answer.resolve(bodies_.value(exchange->action));
  }
  const std::stop_callback onStop(token, [exchange, endsAtOnce = cancelsAtOnce] {
    exchange->cancelled = true;
    if (!endsAtOnce) return;
    exchange->over = true;
    exchange->answer.fail(std::make_exception_ptr(URLError(URLError::Code::cancelled)));
  });
  QByteArray body = co_await exchange->answer;
  co_return body;
}

std::shared_ptr<FakeTransport::Exchange> FakeTransport::end(const QString& action) {
  const auto found = std::find_if(exchanges_.begin(), exchanges_.end(), [&](const auto& exchange) {
    return exchange->action == action && !exchange->over;
  });
  if (found == exchanges_.end()) return nullptr;
  (*found)->over = true;
  return *found;
}

bool FakeTransport::answer(const QString& action, const QByteArray& body) {
  const auto exchange = end(action);
  if (exchange) exchange->answer.resolve(body);
  return exchange != nullptr;
}

bool FakeTransport::fail(const QString& action, std::exception_ptr error) {
  const auto exchange = end(action);
  if (exchange) exchange->answer.fail(std::move(error));
  return exchange != nullptr;
}

int FakeTransport::count(const QString& action, bool onlyOpen) const {
  return static_cast<int>(
      std::count_if(exchanges_.begin(), exchanges_.end(), [&](const auto& exchange) {
        return exchange->action == action && !(onlyOpen && exchange->over);
      }));
}

}  // namespace vantor::test
