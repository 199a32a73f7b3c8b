#pragma once

#include <QCoroTask>
#include <QObject>
#include <QPointer>
#include <QUuid>
#include <stop_token>
#include <vector>

#include "core/services.h"
#include "platform/announcements.h"
#include "platform/pending.h"
#include "provider/provider_account.h"
#include "provider/provider_details.h"

namespace vantor {

class CatalogDiskStore;

/// Who is signed in, and the world of libraries that this makes. Main thread only.
class Session final : public QObject {
  Q_OBJECT

 public:
  /// Names the current world; a job that holds another is stale.
  using Generation = QUuid;
  struct SignedIn {
    ProviderDetails details;
    std::shared_ptr<CatalogDiskStore> disk;
  };

  Session(const AppServices& services, Announcements& announcements);
  ~Session() override;

  /// Whether the saved account is still being read; no state depends on it afterwards.
  bool startingUp() const { return startingUp_.get(); }
  /// Whether the live library of the restored account is yet to be asked for.
  bool restoringLibrary() const { return restoringLibrary_.get(); }
  const std::optional<ProviderAccount>& account() const { return account_.get(); }
  bool demo() const { return demo_.get(); }
  /// What the provider said of the account when it was signed in to.
  const std::optional<ProviderDetails>& subscription() const { return subscription_.get(); }
  /// Whether someone is being signed in or out.
  bool signingInOrOut() const { return signingInOrOut_.get(); }
  /// Where the account's libraries are kept. Jobs take it from here at each use, so that the
  /// session's end is the end of its thread.
  const std::shared_ptr<CatalogDiskStore>& disk() const { return disk_; }
  const Generation& generation() const { return generation_; }
  bool isCurrent(const Generation& generation, const std::stop_token& stop) const;

  /// Asks the provider, and saves the account; whatever that fails with passes through.
  QCoro::Task<SignedIn> authenticate(ProviderAccount account, std::stop_token stop);
  /// Removes the saved account.
  QCoro::Task<> forgetSaved(std::stop_token stop);
  /// Follows the service to another server, once the account was accepted there and saved. Whether
  /// there is nothing to say about it.
  QCoro::Task<bool> followService(std::stop_token stop);

  void setStartingUp(bool startingUp) { startingUp_.set(startingUp); }
  void setRestoringLibrary(bool restoring) { restoringLibrary_.set(restoring); }
  void setSigningInOrOut(bool underWay);
  void setSubscription(ProviderDetails details) { subscription_.set(std::move(details)); }
  void setDisk(std::shared_ptr<CatalogDiskStore> disk);
  void setAccount(std::optional<ProviderAccount> account) { account_.set(std::move(account)); }
  void setDemo(bool demo) { demo_.set(demo); }
  /// Makes every job of the world before stale.
  void enterNewWorld();

 Q_SIGNALS:
  void startingUpChanged();
  void restoringLibraryChanged();
  void accountChanged();
  void demoChanged();
  void subscriptionChanged();
  void signingInOrOutChanged();

 private:
  static QCoro::Task<SignedIn> authenticate(QPointer<Session> self, ProviderAccount account,
                                            std::stop_token stop);
  static QCoro::Task<bool> followService(QPointer<Session> self, std::stop_token stop);

  const AppServices& services_;
  Announced<bool> startingUp_;
  Announced<bool> restoringLibrary_;
  Announced<std::optional<ProviderAccount>> account_;
  Announced<bool> demo_;
  Announced<std::optional<ProviderDetails>> subscription_;
  Announced<bool> signingInOrOut_;
  std::shared_ptr<CatalogDiskStore> disk_;
  Generation generation_ = QUuid::createUuid();
  std::vector<Pending<Done>> untilIdle_;  // settled at the end of signing in or out
};

}  // namespace vantor
