#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>
#include <QUuid>
#include <memory>
#include <optional>
#include <stop_token>

#include "library/catalog.h"
#include "platform/worker.h"

namespace vantor {

class SecureStore;
struct Folders;

/// The libraries of the last loads, one encrypted file per account and kind. Operations run one at
/// a time on a thread of the store; the file system's and the cipher's failures pass through.
class CatalogDiskStore {
 public:
  /// Takes the key from the secure store, making one on first use, and creates the folder. Blocks:
  /// worker threads only.
  static std::shared_ptr<CatalogDiskStore> create(const SecureStore& secrets,
                                                  const Folders& folders, std::stop_token token);

  /// Takes over from another store: does nothing before that has come to its end.
  void follow(std::shared_ptr<CatalogDiskStore> former);

  /// Absent when there is no file.
  Pending<std::optional<Catalog>> load(const QUuid& account, LibraryKind kind);
  Pending<Done> save(const Catalog& catalog, const QUuid& account, LibraryKind kind);
  /// Removes the account's three files; stops at the first that cannot be removed.
  Pending<Done> clear(const QUuid& account);
  /// Removes the files of every other account, as far as they can be removed.
  void keepOnly(const QUuid& account);
  /// Removes the files of all accounts, likewise, without a key. Blocks: worker threads only.
  static void removeAll(const Folders& folders);

  struct Copy {
    LibraryKind kind;
    qint64 bytes;
    QDateTime written;
  };
  /// What is on the disk, of all accounts, without a key.
  static QList<Copy> copies(const Folders& folders);

  /// HMAC-SHA256 (RFC 2104) of `text` under the store's key, as hexadecimal digits: tells whether
  /// two texts are the same to whoever has the key, and nothing else to others.
  QString keyedDigest(const QString& text) const;

 private:
  CatalogDiskStore(QString folder, QByteArray key);
  QString file(const QUuid& account, LibraryKind kind) const;

  const QString folder_;
  const QByteArray key_;
  Worker worker_;
};

}  // namespace vantor
