// Signing in and out.
#include "core/app_model.h"
#include "platform/cancelled.h"
#include "platform/trace.h"
#include "playback/playback.h"
#include "provider/error_wording.h"
#include "provider/vantor_configuration.h"
#include "storage/catalog_disk_store.h"

namespace vantor {

QCoro::Task<> AppModel::connectAccount(ProviderAccount account, std::stop_token token) {
  return signIn(QPointer(this), std::move(account), token);
}

QCoro::Task<> AppModel::signIn(QPointer<AppModel> self, ProviderAccount account,
                               std::stop_token stop) {
  if (self->session_.signingInOrOut()) co_return;
  self->session_.setSigningInOrOut(true);
  Session::SignedIn accepted;
  const Attempt attempt(sessionTrace, "signing in");
  try {
    const QCoro::Task<Session::SignedIn> asked = self->session_.authenticate(account, stop);
    accepted = co_await asked;
    if (!self) throw Cancelled();
  } catch (...) {
    attempt.failed();
    if (self) self->session_.setSigningInOrOut(false);
    throw;
  }
  self->signedIn(std::move(account), std::move(accepted));
}

void AppModel::signedIn(ProviderAccount account, Session::SignedIn accepted) {
  const Announcements::Scope scope(announcements_);
  services_.configuration.accept(account.serverText());
  playback_->stop();
  leaveWorld();
  session_.setSubscription(std::move(accepted.details));
  session_.setDisk(std::move(accepted.disk));
  session_.setAccount(std::move(account));
  takeUpRecord();
  notice_.set(std::nullopt);
  setShowingConnect(false);
  load(LibraryKind::live, LoadMode::copyFirst);
  session_.setSigningInOrOut(false);
}

QCoro::Task<> AppModel::disconnectAccount(std::stop_token token) {
  return signOut(QPointer(this), token);
}

QCoro::Task<> AppModel::signOut(QPointer<AppModel> self, std::stop_token stop) {
  if (self->session_.signingInOrOut()) co_return;
  self->session_.setSigningInOrOut(true);
  const QCoro::Task<> removed = self->session_.forgetSaved(stop);
  const Attempt removing(sessionTrace, "removing the saved account");
  try {
    co_await removed;
  } catch (...) {
    removing.failed();
    if (!self) co_return;
    self->notice_.set(readableError(std::current_exception()));
    self->session_.setSigningInOrOut(false);
    co_return;
  }
  if (!self) co_return;
  const std::optional<ProviderAccount> left = self->session_.account();
  self->signedOut();
  if (left && self->session_.disk()) {
    const Pending<Done> cleared = self->session_.disk()->clear(left->id);
    const Attempt clearing(storageTrace, "removing the account's libraries");
    try {
      co_await cleared;
    } catch (...) {
      // The account is gone either way; its files are unreadable without the key.
      clearing.failed();
    }
  }
  if (self) self->session_.setSigningInOrOut(false);
}

void AppModel::signedOut() {
  const Announcements::Scope scope(announcements_);
  // The last report of progress still belongs to the account.
  playback_->stop();
  leaveWorld();
  setShowingSettings(false);
}

}  // namespace vantor
