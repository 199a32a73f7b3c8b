// Restoring the saved account when the program starts.
#include "core/app_model.h"
#include "platform/trace.h"
#include "platform/worker.h"
#include "playback/playback.h"
#include "provider/error_wording.h"
#include "storage/catalog_disk_store.h"
#include "storage/secure_store.h"

namespace vantor {

/// What the credential store held; a failure leaves what was restored before it.
struct AppModel::Restored {
  std::optional<ProviderAccount> account;
  std::shared_ptr<CatalogDiskStore> disk;
  // Already being read while the window is made.
  std::optional<Libraries::CatalogCopy> liveCopy;
  std::optional<QString> notice;

  static Restored read(const SecureStore& secrets, const Folders& folders, std::stop_token stop) {
    Restored restored;
    const Attempt attempt(sessionTrace, "reading the saved account");
    try {
      const std::optional<QByteArray> saved = secrets.read(providerItem, stop);
      if (!saved) {
        CatalogDiskStore::removeAll(folders);
        return restored;
      }
      restored.account = ProviderAccount::fromJSON(*saved);
      restored.disk = CatalogDiskStore::create(secrets, folders, stop);
      restored.liveCopy = restored.disk->load(restored.account->id, LibraryKind::live);
    } catch (...) {
      attempt.failed();
      restored.notice = readableError(std::current_exception());
    }
    return restored;
  }
};

void AppModel::beginStartUp() {
  session_.setStartingUp(true);
  // Off the main thread: the credential store may wait for the user to unlock it. At once, so that
  // it goes on while the window is made.
  const Pending<Restored> reading = services_.secrets.run(
      [&secrets = services_.secureStore, folders = services_.folders,
       stop = startUpReading_.get_token()] { return Restored::read(secrets, folders, stop); });
  startUpTask_ =
      Job::start([self = QPointer(this), token = session_.generation(),
                  reading](std::stop_token stop) { return startUp(self, token, reading, stop); });
}

QCoro::Task<> AppModel::startUp(QPointer<AppModel> self, Session::Generation token,
                                Pending<Restored> reading, std::stop_token stop) {
  Restored restored = co_await reading;
  if (!self || stop.stop_requested()) co_return;
  const bool superseded = self->session_.generation() != token;
  self->applyRestored(superseded ? Restored() : std::move(restored));
  if (!self || !self->session_.restoringLibrary()) co_return;
  const QUrl server = self->session_.account()->server;
  const QCoro::Task<bool> followed = self->session_.followService(stop);
  const bool well = co_await followed;
  if (!well && self)
    self->notice_.set(
        tr("The updated server could not be verified. Keeping your saved connection."));
  if (!self || !self->session_.isCurrent(token, stop)) co_return;
  if (self->session_.account()->server != server) self->guide_.serverChanged();
  self->libraryRestorable();
}

void AppModel::libraryRestorable() {
  const Announcements::Scope scope(announcements_);
  session_.setRestoringLibrary(false);
  load(LibraryKind::live, LoadMode::copyFirst);
}

void AppModel::applyRestored(Restored restored) {
  const Announcements::Scope scope(announcements_);
  session_.setStartingUp(false);
  if (restored.notice) notice_.set(restored.notice);
  if (!restored.account) return;
  // Whoever went elsewhere meanwhile finds it as it was left.
  navigate(Section::live);
  session_.setAccount(std::move(restored.account));
  session_.setRestoringLibrary(true);
  session_.setDisk(std::move(restored.disk));
  libraries_.keepLiveCopy(std::move(restored.liveCopy));
  record_.read();
  if (session_.disk()) takeUpRecord();
}

}  // namespace vantor
