#include "core/session.h"

#include "platform/cancelled.h"
#include "platform/trace.h"
#include "platform/worker.h"
#include "provider/provider_client.h"
#include "provider/vantor_configuration.h"
#include "storage/catalog_disk_store.h"
#include "storage/secure_store.h"

namespace vantor {

Session::Session(const AppServices& services, Announcements& announcements)
    : services_(services),
      startingUp_(announcements, *this, &Session::startingUpChanged),
      restoringLibrary_(announcements, *this, &Session::restoringLibraryChanged),
      account_(announcements, *this, &Session::accountChanged),
      demo_(announcements, *this, &Session::demoChanged),
      subscription_(announcements, *this, &Session::subscriptionChanged),
      signingInOrOut_(announcements, *this, &Session::signingInOrOutChanged) {}

Session::~Session() {
  for (const Pending<Done>& waiting : untilIdle_) waiting.resolve({});
}

bool Session::isCurrent(const Generation& generation, const std::stop_token& stop) const {
  return generation_ == generation && !stop.stop_requested();
}

void Session::enterNewWorld() {
  restoringLibrary_.set(false);
  generation_ = QUuid::createUuid();
}

void Session::setDisk(std::shared_ptr<CatalogDiskStore> disk) {
  auto old = std::exchange(disk_, std::move(disk));
  if (!old || old == disk_) return;
  // It may be in the middle of a save, and its end waits for that.
  if (disk_)
    disk_->follow(std::move(old));
  else
    services_.worker.post([old = std::move(old)] {});
}

void Session::setSigningInOrOut(bool underWay) {
  signingInOrOut_.set(underWay);
  if (!underWay)
    for (const Pending<Done>& waiting : std::exchange(untilIdle_, {})) waiting.resolve({});
}

QCoro::Task<Session::SignedIn> Session::authenticate(ProviderAccount account,
                                                     std::stop_token stop) {
  return authenticate(QPointer(this), std::move(account), stop);
}

QCoro::Task<Session::SignedIn> Session::authenticate(QPointer<Session> self,
                                                     ProviderAccount account,
                                                     std::stop_token stop) {
  SignedIn result;
  const ProviderClient client(account, self->services_.transport, self->services_.worker);
  const QCoro::Task<ProviderDetails> answered = client.authenticate(stop);
  result.details = co_await answered;
  if (!self) throw Cancelled();
  const auto stored = self->services_.secrets.run([&secrets = self->services_.secureStore,
                                                   folders = self->services_.folders,
                                                   json = account.toJSON(), stop] {
    auto store = CatalogDiskStore::create(secrets, folders, stop);
    secrets.write(json, providerItem, stop);
    return store;
  });
  result.disk = co_await stored;
  co_return result;
}

QCoro::Task<> Session::forgetSaved(std::stop_token stop) {
  const auto removed = services_.secrets.run(
      [&secrets = services_.secureStore, stop] { secrets.remove(providerItem, stop); });
  co_await removed;
}

QCoro::Task<bool> Session::followService(std::stop_token stop) {
  return followService(QPointer(this), stop);
}

QCoro::Task<bool> Session::followService(QPointer<Session> self, std::stop_token stop) {
  if (!self->account()) co_return true;
  const QUuid checked = self->account()->id;
  const QCoro::Task<QString> resolved = self->services_.configuration.resolve(stop);
  const QString server = co_await resolved;
  // Someone who signed in or out meanwhile wants that account as it is.
  const auto isSuperseded = [&] {
    return !self || stop.stop_requested() || !self->account() || self->account()->id != checked;
  };
  if (isSuperseded()) co_return true;
  ProviderAccount candidate = *self->account();
  candidate.server = QUrl(server, QUrl::StrictMode);
  if (!candidate.server.isValid()) co_return true;
  // The document may write in capitals what an address has in small letters.
  if (candidate.serverText() == self->account()->serverText()) co_return true;
  const Attempt attempt(sessionTrace, "following the service to another server");
  try {
    const ProviderClient client(candidate, self->services_.transport, self->services_.worker);
    const QCoro::Task<ProviderDetails> answered = client.authenticate(stop);
    co_await answered;
    // The last write counts, so that of a sign-in or a removal must not come before this one.
    while (self && self->signingInOrOut()) {
      const Pending<Done> idle;
      self->untilIdle_.push_back(idle);
      co_await idle;
    }
    if (isSuperseded()) co_return true;
    const auto written = self->services_.secrets.run(
        [&secrets = self->services_.secureStore, json = candidate.toJSON(), stop] {
          secrets.write(json, providerItem, stop);
        });
    co_await written;
  } catch (...) {
    attempt.failed();
    co_return isSuperseded();
  }
  if (isSuperseded()) co_return true;
  self->setAccount(candidate);
  self->services_.configuration.accept(server);
  co_return true;
}

}  // namespace vantor
