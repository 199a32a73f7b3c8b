#include "storage/secure_store.h"

#include "platform/app_error.h"
#include "platform/credential_store.h"

namespace vantor {

SecureStore::SecureStore(CredentialStore& store, QString service)
    : store_(store), service_(std::move(service)) {}

std::optional<QByteArray> SecureStore::read(const QString& name, std::stop_token token) const {
  const CredentialStore::Match match = store_.copyMatching({service_, name}, token);
  if (match.status == CredentialStatus::itemNotFound) return std::nullopt;
  if (match.status != CredentialStatus::success)
    throw AppError(AppError::tr(
        "Vantor could not read its saved account from Keychain. Allow access and try again."));
  return match.value;
}

void SecureStore::write(const QByteArray& value, const QString& name, std::stop_token token) const {
  const CredentialKey key{service_, name};
  const CredentialStatus updated = store_.update(key, value, token);
  if (updated == CredentialStatus::success) return;
  if (updated != CredentialStatus::itemNotFound)
    throw AppError(AppError::tr("Vantor could not update its saved Keychain account."));
  if (store_.add(key, value, token) != CredentialStatus::success)
    throw AppError(AppError::tr("Vantor could not securely save this account in Keychain."));
}

void SecureStore::remove(const QString& name, std::stop_token token) const {
  if (store_.remove({service_, name}, token) == CredentialStatus::failure)
    throw AppError(AppError::tr("The saved account could not be removed from Keychain."));
}

}  // namespace vantor
