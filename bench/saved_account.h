#pragma once

#include <chrono>

#include "library/catalog_stored_form.h"
#include "platform/folders.h"
#include "platform/secret_service_store.h"
#include "provider/catalog_parsing.h"
#include "provider/provider_account.h"
#include "provider/service_values.h"
#include "sim/library.h"
#include "sim/server.h"
#include "storage/catalog_disk_store.h"
#include "storage/private_file.h"
#include "storage/sealed_box.h"
#include "storage/secure_store.h"

namespace vantor::bench {

/// The account of a simulated provider as the program keeps it, in a secret service and a home of
/// the bench's own.
class SavedAccount {
 public:
  SavedAccount(const sim::Server& server, const sim::Options& options)
      : account_(ProviderAccount::validated(
            QStringLiteral("Vantor TV"), QString::fromStdString(server.url()),
            QString::fromStdString(options.username), QString::fromStdString(options.password))) {
    SecretServiceStore desktop;
    const SecureStore secrets(desktop, ServiceValues::ofBuild().bundleIdentifier);
    secrets.write(account_.toJSON(), providerItem, {});
    secrets.write(key_, catalogKeyItem, {});
    makePrivateFolder(folder());
  }

  static QString folder() {
    return Folders::ofUser().applicationSupport +
           QStringLiteral("/Vantor Player Mac Preview/Catalog");
  }

  /// Keeps a copy of the simulator's library; its pictures are nowhere.
  void saveCopy(LibraryKind kind, sim::Kind simulated, int entries) const {
    const QByteArray rows =
        QByteArray::fromStdString(sim::rowsJson(simulated, entries, "http://127.0.0.1:1"));
    const Catalog catalog =
        parseCatalog(rows, QByteArray::fromStdString(sim::categoriesJson(simulated)), kind,
                     std::chrono::system_clock::now());
    const QString file = account_.idText() + u'-' + rawValue(kind) + QStringLiteral(".bin");
    private_file::replace(folder() + u'/' + file,
                          sealed_box::seal(CatalogWriter::toJSON(catalog), key_));
  }

 private:
  ProviderAccount account_;
  QByteArray key_ = sealed_box::randomBytes(sealed_box::keySize);
};

}  // namespace vantor::bench
