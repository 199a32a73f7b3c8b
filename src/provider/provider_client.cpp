#include "provider/provider_client.h"

#include "library/catalog_builder.h"
#include "platform/cancelled.h"
#include "platform/trace.h"
#include "platform/worker.h"
#include "provider/api_actions.h"
#include "provider/catalog_parsing.h"
#include "provider/episodes_parsing.h"
#include "provider/guide_parsing.h"

namespace vantor {

using namespace Qt::StringLiterals;

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

QCoro::Task<Catalog> ProviderClient::catalog(LibraryKind kind, std::stop_token token,
                                             OnPart onPart) const {
  return load(*this, kind, std::move(onPart), token);
}

QCoro::Task<QList<MediaItem>> ProviderClient::episodes(const MediaItem& show,
                                                       std::stop_token token) const {
  return loadEpisodes(*this, show, token);
}

QCoro::Task<GuideEntries> ProviderClient::guide(const MediaItem& channel,
                                                std::stop_token token) const {
  return loadGuide(*this, channel, token);
}

QCoro::Task<ProviderDetails> ProviderClient::signIn(ProviderClient client, std::stop_token token) {
  const QCoro::Task<QByteArray> answered = client.request({}, {}, token);
  QByteArray answer = co_await answered;
  const auto parsed = client.worker_->run(
      [answer = std::move(answer)]() mutable { return parseSignIn(std::move(answer)); });
  ProviderDetails details = co_await parsed;
  co_return details;
}

QCoro::Task<Catalog> ProviderClient::load(ProviderClient client, LibraryKind kind, OnPart onPart,
                                          std::stop_token token) {
  std::stop_source both;
  const std::stop_callback onStop(token, [both]() mutable { both.request_stop(); });
  const std::stop_token children = both.get_token();
  const QCoro::Task<QByteArray> entriesAnswer = client.request(action(kind), {}, children);
  const QCoro::Task<QByteArray> categoriesAnswer =
      client.request(categoryAction(kind), {}, children);
  try {
    QByteArray entries;
    std::exception_ptr tooLarge;
    const Attempt inOneAnswer(providerTrace, "loading a library in one answer");
    try {
      entries = co_await entriesAnswer;
    } catch (const OversizedBody&) {
      inOneAnswer.failed();
      tooLarge = std::current_exception();
    }
    if (tooLarge) {
      QByteArray categories;
      try {
        categories = co_await categoriesAnswer;
      } catch (...) {
        throwIfStopped(children);
        std::rethrow_exception(tooLarge);
      }
      const QCoro::Task<std::optional<Catalog>> collected =
          loadByCategory(client, kind, std::move(categories), std::move(onPart), children);
      std::optional<Catalog> catalog = co_await collected;
      if (!catalog) std::rethrow_exception(tooLarge);
      co_return *std::move(catalog);
    }
    // Read at once: the categories may take long, and are for nothing if these are no entries.
    const auto read = client.worker_->run([entries = std::move(entries), kind, children]() mutable {
      return parseEntries(std::move(entries), kind, children);
    });
    std::shared_ptr<CatalogBuilder> builder = co_await read;
    QByteArray categories = co_await categoriesAnswer;
    // They may have come before the entries were read, and the worker may be gone.
    throwIfStopped(children);
    const auto parsed = client.worker_->run(
        [categories = std::move(categories), builder = std::move(builder), children]() mutable {
          parseCategories(std::move(categories), *builder, children);
          return builder->build(std::chrono::system_clock::now());
        });
    Catalog catalog = co_await parsed;
    co_return catalog;
  } catch (...) {
    both.request_stop();
    throw;
  }
}

QCoro::Task<QByteArray> ProviderClient::entriesOf(ProviderClient client, LibraryKind kind,
                                                  AskedCategory category, std::stop_token token) {
  const QueryItems extra{std::pair(u"category_id"_s, category.id)};
  const QCoro::Task<QByteArray> answered = client.request(action(kind), extra, token);
  const Attempt withoutName(providerTrace, "loading the entries without a category");
  QByteArray answer = "[]";
  try {
    answer = co_await answered;
  } catch (const OversizedBody&) {
    // To some servers "0" means all of them.
    if (category.named) throw;
    withoutName.failed();
  } catch (const HTTPFailure&) {
    // Others know no such category.
    if (category.named) throw;
    withoutName.failed();
  }
  co_return answer;
}

QCoro::Task<std::optional<Catalog>> ProviderClient::loadByCategory(ProviderClient client,
                                                                   LibraryKind kind,
                                                                   QByteArray categories,
                                                                   OnPart onPart,
                                                                   std::stop_token token) {
  throwIfStopped(token);
  const auto library = std::make_shared<CatalogByCategory>(kind);
  const auto listed =
      client.worker_->run([library, token, answer = std::move(categories)]() mutable {
        return library->readCategories(std::move(answer), token);
      });
  std::vector<AskedCategory> categoriesToAsk;
  const Attempt listing(providerTrace, "reading what a large library can be asked by");
  try {
    categoriesToAsk = co_await listed;
  } catch (...) {
    listing.failed();
  }
  throwIfStopped(token);
  if (categoriesToAsk.empty()) co_return std::nullopt;
  CatalogPart part;
  part.progress.categories = categoriesToAsk.size();
  if (onPart) onPart(part);
  for (const AskedCategory& category : categoriesToAsk) {
    throwIfStopped(token);
    const QCoro::Task<QByteArray> asked = entriesOf(client, kind, category, token);
    QByteArray answer = co_await asked;
    throwIfStopped(token);
    const Attempt reading(providerTrace, "reading the entries of a category");
    const auto read = client.worker_->run([library, token, answer = std::move(answer)]() mutable {
      return library->readEntries(std::move(answer), token);
    });
    try {
      part = co_await read;
    } catch (const OversizedBody&) {
      throw;
    } catch (const AppError&) {
      if (category.named) throw;
      reading.failed();
      // The last one; all that has come was told of.
      break;
    }
    throwIfStopped(token);
    if (onPart) onPart(part);
  }
  throwIfStopped(token);
  const auto built = client.worker_->run([library] { return library->whole(); });
  Catalog catalog = co_await built;
  co_return catalog;
}

QCoro::Task<QList<MediaItem>> ProviderClient::loadEpisodes(ProviderClient client, MediaItem show,
                                                           std::stop_token token) {
  const QueryItems extra{std::pair(u"series_id"_s, show.providerID)};
  const QCoro::Task<QByteArray> answered = client.request(u"get_series_info"_s, extra, token);
  QByteArray answer = co_await answered;
  const auto parsed =
      client.worker_->run([answer = std::move(answer), show = std::move(show), token]() mutable {
        return parseEpisodes(std::move(answer), show, token);
      });
  QList<MediaItem> episodes = co_await parsed;
  co_return episodes;
}

QCoro::Task<GuideEntries> ProviderClient::loadGuide(ProviderClient client, MediaItem channel,
                                                    std::stop_token token) {
  const QueryItems extra{std::pair(u"stream_id"_s, channel.providerID),
                         std::pair(u"limit"_s, u"8"_s)};
  const QCoro::Task<QByteArray> answered = client.request(u"get_short_epg"_s, extra, token);
  QByteArray answer = co_await answered;
  const auto parsed =
      client.worker_->run([answer = std::move(answer), id = channel.id, token]() mutable {
        return parseGuide(std::move(answer), id, token);
      });
  GuideEntries entries = co_await parsed;
  co_return entries;
}

}  // namespace vantor
