// Signing in and out, following the service's server, loading libraries.
#include "core/app_model.h"
#include "platform/cancelled.h"
#include "platform/worker.h"
#include "playback/playback.h"
#include "provider/error_wording.h"
#include "provider/provider_client.h"
#include "provider/vantor_configuration.h"
#include "storage/catalog_disk_store.h"
#include "storage/secure_store.h"

namespace vantor {
namespace {

const QString keepingConnection =
    QStringLiteral("The updated server could not be verified. Keeping your saved connection.");

}  // namespace

bool AppModel::isCurrent(const Generation& token, const std::stop_token& stop) const {
  return generation_ == token && !stop.stop_requested();
}

AppModel::CatalogCopy AppModel::takeCopy(const QUuid& account, LibraryKind kind) {
  if (kind == LibraryKind::live && liveCopy_) return *std::exchange(liveCopy_, std::nullopt);
  return disk_->load(account, kind);
}

void AppModel::replaceDisk(std::shared_ptr<CatalogDiskStore> disk) {
  // The old store may be in the middle of a save, and its end waits for that.
  services_.worker.post([old = std::exchange(disk_, std::move(disk))] {});
}

void AppModel::settleIn(std::optional<ProviderAccount> account) {
  const Operation operation(announcements_);
  assign(account_, std::move(account), &AppModel::accountChanged);
  assign(demo_, false, &AppModel::demoChanged);
  setCatalogs({});
  clear(loading_, &AppModel::loadingChanged);
  clear(errors_, &AppModel::errorsChanged);
  setFavorites({});
  setFilter(rawValue(LibraryKind::live), category_, search_);
}

void AppModel::setBusy(bool busy) {
  assign(busy_, busy, &AppModel::busyChanged);
  if (!busy)
    for (const Pending<Done>& waiting : std::exchange(untilIdle_, {})) waiting.resolve({});
}

QCoro::Task<> AppModel::connectAccount(ProviderAccount account, std::stop_token token) {
  return signIn(QPointer(this), std::move(account), token);
}

QCoro::Task<> AppModel::signIn(QPointer<AppModel> self, ProviderAccount account,
                               std::stop_token stop) {
  if (self->busy_) co_return;
  self->setBusy(true);
  ProviderDetails details;
  std::shared_ptr<CatalogDiskStore> disk;
  try {
    const ProviderClient client(account, self->services_.transport, self->services_.worker);
    const QCoro::Task<ProviderDetails> answered = client.authenticate(stop);
    details = co_await answered;
    if (!self) throw Cancelled();
    const auto stored = self->services_.secrets.run([&secrets = self->services_.secureStore,
                                                     folders = self->services_.folders,
                                                     json = account.toJSON(), stop] {
      auto store = CatalogDiskStore::create(secrets, folders, stop);
      secrets.write(json, providerItem, stop);
      return store;
    });
    disk = co_await stored;
    if (!self) throw Cancelled();
  } catch (...) {
    if (self) self->setBusy(false);
    throw;
  }
  self->signedIn(std::move(account), std::move(details), std::move(disk));
}

void AppModel::signedIn(ProviderAccount account, ProviderDetails details,
                        std::shared_ptr<CatalogDiskStore> disk) {
  const Operation operation(announcements_);
  services_.configuration.accept(account.serverText());
  enterNewWorld();
  playback_->stop();
  resetBrowseState();
  assign(details_, std::optional(std::move(details)), &AppModel::detailsChanged);
  replaceDisk(std::move(disk));
  settleIn(std::move(account));
  beginRecord();
  setNotice(std::nullopt);
  setShowingConnect(false);
  load(LibraryKind::live, false);
  setBusy(false);
}

QCoro::Task<> AppModel::disconnectAccount(std::stop_token token) {
  return signOut(QPointer(this), token);
}

QCoro::Task<> AppModel::signOut(QPointer<AppModel> self, std::stop_token stop) {
  if (self->busy_) co_return;
  self->setBusy(true);
  const auto removed = self->services_.secrets.run(
      [&secrets = self->services_.secureStore, stop] { secrets.remove(providerItem, stop); });
  try {
    co_await removed;
  } catch (...) {
    if (!self) co_return;
    self->setNotice(readableError(std::current_exception()));
    self->setBusy(false);
    co_return;
  }
  if (!self) co_return;
  const std::optional<ProviderAccount> left = self->account_;
  self->signedOut();
  if (left && self->disk_) {
    const Pending<Done> cleared = self->disk_->clear(left->id);
    try {
      co_await cleared;
    } catch (...) {
      // The account is gone either way; its files are unreadable without the key.
    }
  }
  if (self) self->setBusy(false);
}

void AppModel::signedOut() {
  const Operation operation(announcements_);
  enterNewWorld();
  // The last report of progress still belongs to the account.
  playback_->stop();
  resetBrowseState();
  settleIn(std::nullopt);
  setShowingSettings(false);
}

QCoro::Task<> AppModel::refreshService(QPointer<AppModel> self, std::stop_token stop) {
  if (!self->account_) co_return;
  const QCoro::Task<QString> resolved = self->services_.configuration.resolve(stop);
  const QString server = co_await resolved;
  if (!self || stop.stop_requested() || !self->account_) co_return;
  if (server == self->account_->serverText()) co_return;
  ProviderAccount candidate = *self->account_;
  candidate.server = QUrl(server, QUrl::StrictMode);
  if (!candidate.server.isValid()) co_return;
  // Someone who signed in or out meanwhile wants that account, not the candidate.
  const auto isSuperseded = [&] {
    return !self || stop.stop_requested() || !self->account_ || self->account_->id != candidate.id;
  };
  try {
    const ProviderClient client(candidate, self->services_.transport, self->services_.worker);
    const QCoro::Task<ProviderDetails> answered = client.authenticate(stop);
    co_await answered;
    // The last write counts, so that of a sign-in or a removal must not come before this one.
    while (self && self->busy_) {
      const Pending<Done> idle;
      self->untilIdle_.push_back(idle);
      co_await idle;
    }
    if (isSuperseded()) co_return;
    const auto written = self->services_.secrets.run(
        [&secrets = self->services_.secureStore, json = candidate.toJSON(), stop] {
          secrets.write(json, providerItem, stop);
        });
    co_await written;
  } catch (...) {
    if (!isSuperseded()) self->setNotice(keepingConnection);
    co_return;
  }
  if (isSuperseded()) co_return;
  self->assign(self->account_, std::optional(candidate), &AppModel::accountChanged);
  self->services_.configuration.accept(server);
}

void AppModel::load(LibraryKind kind, bool refresh) {
  if (demo_ || !account_ || tasks_.contains(kind)) return;
  if (!refresh && catalogs_.contains(kind)) return;
  const Operation operation(announcements_);
  // A copy that is passed over is not kept.
  if (refresh && kind == LibraryKind::live) liveCopy_.reset();
  loading_.insert(kind);
  announcements_.note(&AppModel::loadingChanged);
  if (errors_.erase(kind) > 0) announcements_.note(&AppModel::errorsChanged);
  tasks_[kind] = Job::start([self = QPointer(this), kind, refresh, account = *account_,
                             token = generation_](std::stop_token stop) {
    return loadLibrary(self, kind, refresh, account, token, stop);
  });
}

void AppModel::arrived(LibraryKind kind, const Catalog& catalog) {
  const Operation operation(announcements_);
  std::map<LibraryKind, Catalog> catalogs = catalogs_;
  catalogs.insert_or_assign(kind, catalog);
  setCatalogs(std::move(catalogs));
  restoreSelection(kind);
}

void AppModel::loadEnded(LibraryKind kind) {
  const Operation operation(announcements_);
  loading_.erase(kind);
  tasks_.erase(kind);
  announcements_.note(&AppModel::loadingChanged);
}

void AppModel::loadFailed(LibraryKind kind, std::exception_ptr failure) {
  const Operation operation(announcements_);
  errors_[kind] = readableError(failure);
  announcements_.note(&AppModel::errorsChanged);
  loadEnded(kind);
}

QCoro::Task<> AppModel::loadLibrary(QPointer<AppModel> self, LibraryKind kind, bool refresh,
                                    ProviderAccount account, Generation token,
                                    std::stop_token stop) {
  if (!self) co_return;
  std::optional<Catalog> catalog;
  if (!refresh && self->disk_) {
    const CatalogCopy reading = self->takeCopy(account.id, kind);
    try {
      catalog = co_await reading;
    } catch (...) {
      // A copy that cannot be read is as good as none.
    }
    if (!self || !self->isCurrent(token, stop)) co_return;
  }
  if (catalog) {
    self->arrived(kind, *catalog);
  } else {
    std::exception_ptr failure;
    try {
      const ProviderClient client(account, self->services_.transport, self->services_.worker);
      const QCoro::Task<Catalog> answered = client.catalog(kind, stop);
      catalog = co_await answered;
    } catch (...) {
      failure = std::current_exception();
    }
    if (!self || !self->isCurrent(token, stop)) co_return;
    if (failure) co_return self->loadFailed(kind, failure);
    self->arrived(kind, *catalog);
    if (self->disk_) {
      const Pending<Done> saved = self->disk_->save(*catalog, account.id, kind);
      try {
        co_await saved;
      } catch (...) {
        failure = std::current_exception();
      }
      if (!self || !self->isCurrent(token, stop)) co_return;
      if (failure)
        self->setNotice(
            QStringLiteral("Library loaded, but its saved copy could not be updated. It will "
                           "remain available while the app is open."));
    }
  }
  self->loadEnded(kind);
}

}  // namespace vantor
