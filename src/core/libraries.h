#pragma once

#include <QObject>
#include <QPointer>
#include <map>
#include <set>

#include "core/session.h"
#include "library/catalog.h"
#include "platform/job.h"
#include "provider/catalog_by_category.h"

namespace vantor {

/// Whether a library that is loaded, or has a copy, will do; or the provider is asked in any case.
enum class LoadMode : unsigned char { copyFirst, refresh };

/// The catalogues of the account's libraries, loaded from their copies on disk or from the
/// provider. Main thread only.
class Libraries final : public QObject {
  Q_OBJECT

 public:
  using CatalogCopy = Pending<std::optional<Catalog>>;
  struct Listener {
    /// Catalogues differ; what is derived from them does too.
    std::function<void()> changed;
    std::function<void(LibraryKind)> arrived;
    std::function<void(const QString&)> notice;
  };

  /// The listener is called within the change, before anyone is told of it.
  Libraries(const AppServices& services, Announcements& announcements, const Session& session,
            Listener listener);

  const std::map<LibraryKind, Catalog>& catalogs() const { return catalogs_; }
  /// The catalogue of a library, empty while it is not loaded.
  Catalog catalog(LibraryKind kind) const;
  const std::set<LibraryKind>& loading() const { return loading_.get(); }
  /// What the last load of a library failed with, one of the system's sentences.
  const std::map<LibraryKind, QString>& errors() const { return errors_.get(); }
  /// How far those libraries have come that are loaded in parts. What has come of one is its
  /// catalogue meanwhile, unless it had one.
  const std::map<LibraryKind, LoadProgress>& progress() const { return progress_.get(); }

  void load(LibraryKind kind, LoadMode mode);
  void show(std::map<LibraryKind, Catalog> catalogs);
  /// The live library's copy of this start is used by the first load, if it reads copies.
  void keepLiveCopy(std::optional<CatalogCopy> copy) { liveCopy_ = std::move(copy); }
  /// Cancels what is being loaded, and drops all catalogues and errors.
  void forget();

 Q_SIGNALS:
  void loadingChanged();
  void errorsChanged();
  void progressChanged();
  void catalogsChanged();

 private:
  static QCoro::Task<Catalog> fetch(QPointer<Libraries> self, LibraryKind kind,
                                    ProviderAccount account, Session::Generation token,
                                    std::stop_token stop);
  static QCoro::Task<> loadLibrary(QPointer<Libraries> self, LibraryKind kind, LoadMode mode,
                                   ProviderAccount account, Session::Generation token,
                                   std::stop_token stop);
  CatalogCopy takeCopy(const QUuid& account, LibraryKind kind);
  void partArrived(LibraryKind kind, const CatalogPart& part);
  void arrived(LibraryKind kind, const Catalog& catalog);
  void failed(LibraryKind kind, std::exception_ptr failure);
  void ended(LibraryKind kind);

  const AppServices& services_;
  Announcements& announcements_;
  const Session& session_;
  const Listener listener_;
  Announced<std::set<LibraryKind>> loading_;
  Announced<std::map<LibraryKind, QString>> errors_;
  Announced<std::map<LibraryKind, LoadProgress>> progress_;
  Announcement catalogsDiffer_;
  std::map<LibraryKind, Catalog> catalogs_;
  std::set<LibraryKind> incomplete_;  // of those
  std::optional<CatalogCopy> liveCopy_;
  std::map<LibraryKind, Job> tasks_;
};

}  // namespace vantor
