#include "core/libraries.h"

#include "platform/trace.h"
#include "provider/error_wording.h"
#include "provider/provider_client.h"
#include "storage/catalog_disk_store.h"

namespace vantor {

Libraries::Libraries(const AppServices& services, Announcements& announcements,
                     const Session& session, Listener listener)
    : services_(services),
      announcements_(announcements),
      session_(session),
      listener_(std::move(listener)),
      loading_(announcements, *this, &Libraries::loadingChanged),
      errors_(announcements, *this, &Libraries::errorsChanged),
      progress_(announcements, *this, &Libraries::progressChanged),
      catalogsDiffer_(announcements, *this, &Libraries::catalogsChanged) {}

Catalog Libraries::catalog(LibraryKind kind) const {
  const auto loaded = catalogs_.find(kind);
  return loaded == catalogs_.end() ? Catalog::empty() : loaded->second;
}

void Libraries::show(std::map<LibraryKind, Catalog> catalogs) {
  if (catalogs_.empty() && catalogs.empty()) return;
  const Announcements::Scope scope(announcements_);
  catalogs_ = std::move(catalogs);
  catalogsDiffer_.note();
  listener_.changed();
}

void Libraries::forget() {
  const Announcements::Scope scope(announcements_);
  tasks_.clear();
  liveCopy_.reset();
  incomplete_.clear();
  show({});
  progress_.set({});
  loading_.set({});
  errors_.set({});
}

void Libraries::load(LibraryKind kind, LoadMode mode) {
  if (session_.demo() || !session_.account() || tasks_.contains(kind)) return;
  if (mode == LoadMode::copyFirst && catalogs_.contains(kind)) return;
  const Announcements::Scope scope(announcements_);
  // A copy that is passed over is not kept.
  if (mode == LoadMode::refresh && kind == LibraryKind::live) liveCopy_.reset();
  loading_.change([kind](auto& loading) { loading.insert(kind); });
  errors_.change([kind](auto& errors) { errors.erase(kind); });
  tasks_[kind] = Job::start([self = QPointer(this), kind, mode, account = *session_.account(),
                             token = session_.generation()](std::stop_token stop) {
    return loadLibrary(self, kind, mode, account, token, stop);
  });
}

Libraries::CatalogCopy Libraries::takeCopy(const QUuid& account, LibraryKind kind) {
  if (kind == LibraryKind::live && liveCopy_) return *std::exchange(liveCopy_, std::nullopt);
  return session_.disk()->load(account, kind);
}

void Libraries::partArrived(LibraryKind kind, const CatalogPart& part) {
  const Announcements::Scope scope(announcements_);
  progress_.change([&](auto& progress) { progress[kind] = part.progress; });
  if (!part.soFar || (catalogs_.contains(kind) && !incomplete_.contains(kind))) return;
  arrived(kind, *part.soFar);
  incomplete_.insert(kind);
}

void Libraries::arrived(LibraryKind kind, const Catalog& catalog) {
  const Announcements::Scope scope(announcements_);
  std::map<LibraryKind, Catalog> catalogs = catalogs_;
  catalogs.insert_or_assign(kind, catalog);
  incomplete_.erase(kind);
  show(std::move(catalogs));
  listener_.arrived(kind);
}

void Libraries::ended(LibraryKind kind) {
  const Announcements::Scope scope(announcements_);
  progress_.change([kind](auto& progress) { progress.erase(kind); });
  loading_.change([kind](auto& loading) { loading.erase(kind); });
  tasks_.erase(kind);
}

void Libraries::failed(LibraryKind kind, std::exception_ptr failure) {
  const Announcements::Scope scope(announcements_);
  errors_.change([&](auto& errors) { errors[kind] = readableError(failure); });
  if (incomplete_.erase(kind) > 0) {
    std::map<LibraryKind, Catalog> catalogs = catalogs_;
    catalogs.erase(kind);
    show(std::move(catalogs));
  }
  ended(kind);
}

QCoro::Task<Catalog> Libraries::fetch(QPointer<Libraries> self, LibraryKind kind,
                                      ProviderAccount account, Session::Generation token,
                                      std::stop_token stop) {
  const ProviderClient client(account, self->services_.transport, self->services_.worker);
  return client.catalog(kind, stop, [self, kind, token, stop](const CatalogPart& part) {
    if (self && self->session_.isCurrent(token, stop)) self->partArrived(kind, part);
  });
}

QCoro::Task<> Libraries::loadLibrary(QPointer<Libraries> self, LibraryKind kind, LoadMode mode,
                                     ProviderAccount account, Session::Generation token,
                                     std::stop_token stop) {
  if (!self) co_return;
  std::optional<Catalog> catalog;
  if (mode == LoadMode::copyFirst && self->session_.disk()) {
    const CatalogCopy reading = self->takeCopy(account.id, kind);
    const Attempt attempt(storageTrace, "reading the copy of a library");
    try {
      catalog = co_await reading;
    } catch (...) {
      // A copy that cannot be read is as good as none.
      attempt.failed();
    }
    if (!self || !self->session_.isCurrent(token, stop)) co_return;
  }
  if (catalog) {
    self->arrived(kind, *catalog);
  } else {
    std::exception_ptr failure;
    const Attempt loading(providerTrace, "loading a library");
    try {
      const QCoro::Task<Catalog> answered = fetch(self, kind, account, token, stop);
      catalog = co_await answered;
    } catch (...) {
      loading.failed();
      failure = std::current_exception();
    }
    if (!self || !self->session_.isCurrent(token, stop)) co_return;
    if (failure) co_return self->failed(kind, failure);
    self->arrived(kind, *catalog);
    if (self->session_.disk()) {
      const Pending<Done> saved = self->session_.disk()->save(*catalog, account.id, kind);
      const Attempt saving(storageTrace, "saving the copy of a library");
      try {
        co_await saved;
      } catch (...) {
        saving.failed();
        failure = std::current_exception();
      }
      if (!self || !self->session_.isCurrent(token, stop)) co_return;
      if (failure) {
        self->listener_.notice(
            tr("Library loaded, but its saved copy could not be updated. It will "
               "remain available while the app is open."));
      }
    }
  }
  self->ended(kind);
}

}  // namespace vantor
