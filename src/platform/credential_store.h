#pragma once

#include <QByteArray>
#include <QString>
#include <stop_token>

namespace vantor {

enum class CredentialStatus { success, itemNotFound, failure };

/// What identifies one secret: the application that owns it and the name the application gave it.
struct CredentialKey {
  QString service;
  QString account;
};

/// The desktop's store of small secrets. Calls block, also while the desktop asks the user for
/// access, and are made on worker threads; a stop request ends the wait with `failure`.
class CredentialStore {
 public:
  virtual ~CredentialStore() = default;

  struct Match {
    CredentialStatus status = CredentialStatus::failure;
    QByteArray value;
  };
  virtual Match copyMatching(const CredentialKey& key, std::stop_token token) = 0;
  /// Replaces the value of an existing item; `itemNotFound` when there is none.
  virtual CredentialStatus update(const CredentialKey& key, const QByteArray& value,
                                  std::stop_token token) = 0;
  virtual CredentialStatus add(const CredentialKey& key, const QByteArray& value,
                               std::stop_token token) = 0;
  virtual CredentialStatus remove(const CredentialKey& key, std::stop_token token) = 0;
};

}  // namespace vantor
