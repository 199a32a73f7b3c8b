#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <stop_token>

namespace vantor {

class CredentialStore;

/// Small secrets under names, in the desktop's credential store. Caches nothing. Calls block, also
/// while the desktop asks the user for access: worker threads only. Failures are `AppError`s.
class SecureStore {
 public:
  /// `service`: the identifier that all items of the program share.
  SecureStore(CredentialStore& store, QString service);

  /// Absent when there is no such item.
  std::optional<QByteArray> read(const QString& name, std::stop_token token) const;
  void write(const QByteArray& value, const QString& name, std::stop_token token) const;
  /// Removing an absent item succeeds.
  void remove(const QString& name, std::stop_token token) const;

 private:
  CredentialStore& store_;
  QString service_;
};

/// The saved account, as JSON.
inline const QString providerItem = QStringLiteral("provider");
/// The key that seals the catalogue files.
inline const QString catalogKeyItem = QStringLiteral("catalog-key");

}  // namespace vantor
