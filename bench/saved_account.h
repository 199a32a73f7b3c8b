#pragma once

#include <chrono>

#include "platform/folders.h"
#include "platform/secret_service_store.h"
#include "provider/catalog_parsing.h"
#include "provider/provider_account.h"
#include "provider/service_values.h"
#include "sim/library.h"
#include "sim/server.h"
#include "storage/catalog_disk_store.h"
#include "storage/secure_store.h"
#include "support/awaited.h"

namespace vantor::bench {

using namespace Qt::StringLiterals;

/// A simulated provider and an account there, as the program keeps it, in a secret service and a
/// home of the bench's own. Programs that are started afterwards ask this provider, and make no
/// sound.
class SavedAccount {
 public:
  explicit SavedAccount(const sim::Options& options)
      : server_(options),
        account_(ProviderAccount::validated(u"Vantor TV"_s, QString::fromStdString(server_.url()),
                                            QString::fromStdString(options.username),
                                            QString::fromStdString(options.password))) {
    SecretServiceStore desktop;
    const SecureStore secrets(desktop, ServiceValues::ofBuild().bundleIdentifier);
    secrets.write(account_.toJSON(), providerItem, {});
    copies_ = CatalogDiskStore::create(secrets, Folders::ofUser(), {});
    qputenv("VANTOR_CONFIG_URL", QByteArray::fromStdString(server_.configUrl()));
    qputenv("VANTOR_AUDIO", "none");
  }

  /// Keeps a copy of the simulator's library; its pictures are nowhere.
  void saveCopy(LibraryKind kind, sim::Kind simulated, int entries) const {
    const QByteArray rows =
        QByteArray::fromStdString(sim::rowsJson(simulated, entries, "http://127.0.0.1:1"));
    const Catalog catalog =
        parseCatalog(rows, QByteArray::fromStdString(sim::categoriesJson(simulated)), kind,
                     std::chrono::system_clock::now());
    test::awaited<Done>(copies_->save(catalog, account_.id, kind));
  }

 private:
  const sim::Server server_;
  ProviderAccount account_;
  std::shared_ptr<CatalogDiskStore> copies_;
};

}  // namespace vantor::bench
