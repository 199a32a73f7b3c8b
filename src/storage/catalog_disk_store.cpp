#include "storage/catalog_disk_store.h"

#include <QDir>
#include <QFileInfo>
#include <QMessageAuthenticationCode>

#include "library/catalog_stored_form.h"
#include "platform/app_error.h"
#include "platform/canonical_text.h"
#include "platform/folders.h"
#include "platform/trace.h"
#include "storage/private_file.h"
#include "storage/sealed_box.h"
#include "storage/secure_store.h"

namespace vantor {

using namespace Qt::StringLiterals;

namespace {

QString catalogFolder(const Folders& folders) {
  return folders.applicationSupport + u"/Vantor Player Mac Preview/Catalog"_s;
}

/// Removes the catalogue files but those whose names begin with `kept`, unless that is empty.
void removeOthers(const QString& folder, const QString& kept) {
  for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
    if (!kept.isEmpty() && name.startsWith(kept)) continue;
    const Attempt attempt(storageTrace, "removing another account's library");
    try {
      private_file::remove(folder + QLatin1Char('/') + name);
    } catch (const std::system_error&) {
      // Nobody reads it any more; the next start tries again.
      attempt.failed();
    }
  }
}

}  // namespace

CatalogDiskStore::CatalogDiskStore(QString folder, QByteArray key)
    : folder_(std::move(folder)), key_(std::move(key)) {}

std::shared_ptr<CatalogDiskStore> CatalogDiskStore::create(const SecureStore& secrets,
                                                           const Folders& folders,
                                                           std::stop_token token) {
  const QString folder = catalogFolder(folders);
  std::optional<QByteArray> key = secrets.read(catalogKeyItem, token);
  if (!key) {
    key = sealed_box::randomBytes(sealed_box::keySize);
    secrets.write(*key, catalogKeyItem, token);
  }
  if (!makePrivateFolder(folder))
    throw std::system_error(errno, std::generic_category(), "catalogue folder");
  return std::shared_ptr<CatalogDiskStore>(new CatalogDiskStore(folder, *key));
}

void CatalogDiskStore::follow(std::shared_ptr<CatalogDiskStore> former) {
  worker_.post([former = std::move(former)]() mutable { former.reset(); });
}

QString CatalogDiskStore::file(const QUuid& account, LibraryKind kind) const {
  return folder_ + QLatin1Char('/') + canonicalText(account) + QLatin1Char('-') + rawValue(kind) +
         u".bin"_s;
}

Pending<std::optional<Catalog>> CatalogDiskStore::load(const QUuid& account, LibraryKind kind) {
  return worker_.run([path = file(account, kind), key = key_]() -> std::optional<Catalog> {
    if (!QFileInfo::exists(path)) return std::nullopt;
    return catalogFromJSON(sealed_box::open(private_file::read(path), key));
  });
}

Pending<Done> CatalogDiskStore::save(const Catalog& catalog, const QUuid& account,
                                     LibraryKind kind) {
  return worker_.run([catalog, path = file(account, kind), key = key_] {
    std::string box;
    try {
      box = sealed_box::seal(CatalogWriter::toJSON(catalog), key);
    } catch (const sealed_box::Failure&) {
      throw AppError(AppError::tr("The library could not be saved securely."));
    }
    private_file::replace(path, box);
  });
}

Pending<Done> CatalogDiskStore::clear(const QUuid& account) {
  return worker_.run([this, account] {
    for (const LibraryKind kind : allLibraryKinds) private_file::remove(file(account, kind));
  });
}

void CatalogDiskStore::keepOnly(const QUuid& account) {
  worker_.post([folder = folder_, kept = canonicalText(account)] { removeOthers(folder, kept); });
}

void CatalogDiskStore::removeAll(const Folders& folders) {
  removeOthers(catalogFolder(folders), QString());
}

QList<CatalogDiskStore::Copy> CatalogDiskStore::copies(const Folders& folders) {
  QList<Copy> found;
  const QDir folder(catalogFolder(folders));
  for (const LibraryKind kind : allLibraryKinds)
    for (const QFileInfo& file :
         folder.entryInfoList({u"*-%1.bin"_s.arg(rawValue(kind))}, QDir::Files))
      found.append({kind, file.size(), file.lastModified()});
  return found;
}

QString CatalogDiskStore::keyedDigest(const QString& text) const {
  return QString::fromLatin1(
      QMessageAuthenticationCode::hash(text.toUtf8(), key_, QCryptographicHash::Sha256).toHex());
}

}  // namespace vantor
