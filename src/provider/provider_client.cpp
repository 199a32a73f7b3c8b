#include "provider/provider_client.h"

#include "platform/worker.h"
#include "provider/catalog_parsing.h"

namespace vantor {

ProviderClient::ProviderClient(ProviderAccount account, HTTPTransport& transport, Worker& worker)
    : account_(std::move(account)), transport_(&transport), worker_(&worker) {}

QCoro::Task<QByteArray> ProviderClient::request(const QString& action, const QueryItems& extra,
                                                std::stop_token token) const {
  HTTPRequest request;
  request.address = account_.api(action, extra);
  request.userAgent = account_.userAgent.toUtf8();
  return transport_->fetch(request, defaultBodyLimit, token);
}

QCoro::Task<ProviderDetails> ProviderClient::authenticate(std::stop_token token) const {
  return signIn(*this, token);
}

QCoro::Task<Catalog> ProviderClient::catalog(LibraryKind kind, std::stop_token token) const {
  return load(*this, kind, token);
}

QCoro::Task<ProviderDetails> ProviderClient::signIn(ProviderClient client, std::stop_token token) {
  const QCoro::Task<QByteArray> answered = client.request({}, {}, token);
  QByteArray answer = co_await answered;
  const auto parsed =
      client.worker_->run([answer = std::move(answer)] { return parseSignIn(answer); });
  ProviderDetails details = co_await parsed;
  co_return details;
}

QCoro::Task<Catalog> ProviderClient::load(ProviderClient client, LibraryKind kind,
                                          std::stop_token token) {
  std::stop_source both;
  const std::stop_callback onStop(token, [both]() mutable { both.request_stop(); });
  const std::stop_token children = both.get_token();
  const QCoro::Task<QByteArray> entriesAnswer = client.request(action(kind), {}, children);
  const QCoro::Task<QByteArray> categoriesAnswer =
      client.request(categoryAction(kind), {}, children);
  try {
    QByteArray entries = co_await entriesAnswer;
    QByteArray categories = co_await categoriesAnswer;
    const auto parsed = client.worker_->run(
        [entries = std::move(entries), categories = std::move(categories), kind]() mutable {
          return parseCatalog(std::move(entries), std::move(categories), kind,
                              std::chrono::system_clock::now());
        });
    Catalog catalog = co_await parsed;
    co_return catalog;
  } catch (...) {
    both.request_stop();
    throw;
  }
}

}  // namespace vantor
