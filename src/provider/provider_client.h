#pragma once

#include <QCoroTask>
#include <functional>
#include <stop_token>

#include "library/catalog.h"
#include "library/guide_entry.h"
#include "net/http_transport.h"
#include "provider/catalog_by_category.h"
#include "provider/provider_account.h"
#include "provider/provider_details.h"

namespace vantor {

class Worker;

/// Speaks the Xtream Codes player API for one account. A small value, made afresh for each request;
/// keeps no state. Main thread; answers are parsed on `worker`. Operations fail with what the
/// transport fails with, `JSONError` or `AppError`.
class ProviderClient {
 public:
  using OnPart = std::function<void(const CatalogPart&)>;

  /// Both references outlive every operation that is not cancelled.
  ProviderClient(ProviderAccount account, HTTPTransport& transport, Worker& worker);

  QCoro::Task<ProviderDetails> authenticate(std::stop_token token) const;
  /// `onPart` hears of each part of a library that is too large for one answer; not after a stop.
  QCoro::Task<Catalog> catalog(LibraryKind kind, std::stop_token token, OnPart onPart = {}) const;
  /// In viewing order.
  QCoro::Task<QList<MediaItem>> episodes(const MediaItem& show, std::stop_token token) const;
  /// What is on now and next, in the provider's order; may contain programmes that are over.
  QCoro::Task<GuideEntries> guide(const MediaItem& channel, std::stop_token token) const;

 private:
  // Static, and with a client of their own: a member coroutine would outlive the client it ran on.
  static QCoro::Task<ProviderDetails> signIn(ProviderClient client, std::stop_token token);
  static QCoro::Task<Catalog> load(ProviderClient client, LibraryKind kind, OnPart onPart,
                                   std::stop_token token);
  /// The answer for that category; empty when a server does not know what it has not named itself.
  static QCoro::Task<QByteArray> entriesOf(ProviderClient client, LibraryKind kind,
                                           AskedCategory category, std::stop_token token);
  /// Absent when there are no categories to ask by.
  static QCoro::Task<std::optional<Catalog>> loadByCategory(ProviderClient client, LibraryKind kind,
                                                            QByteArray categories, OnPart onPart,
                                                            std::stop_token token);
  static QCoro::Task<QList<MediaItem>> loadEpisodes(ProviderClient client, MediaItem show,
                                                    std::stop_token token);
  static QCoro::Task<GuideEntries> loadGuide(ProviderClient client, MediaItem channel,
                                             std::stop_token token);
  QCoro::Task<QByteArray> request(const QString& action, const QueryItems& extra,
                                  std::stop_token token) const;

  ProviderAccount account_;
  HTTPTransport* transport_;
  Worker* worker_;
};

/// Reads a sign-in answer; fails with `AppError` unless it accepts the account.
ProviderDetails parseSignIn(QByteArray answer);

}  // namespace vantor
