#pragma once

#include "platform/credential_store.h"

namespace vantor {

/// Secrets in the freedesktop.org Secret Service (GNOME Keyring, KWallet, KeePassXC), in its
/// default collection, with the attributes "service" and "account". Safe from any thread.
class SecretServiceStore final : public CredentialStore {
 public:
  Match copyMatching(const CredentialKey& key, std::stop_token token) override;
  CredentialStatus update(const CredentialKey& key, const QByteArray& value,
                          std::stop_token token) override;
  CredentialStatus add(const CredentialKey& key, const QByteArray& value,
                       std::stop_token token) override;
  CredentialStatus remove(const CredentialKey& key, std::stop_token token) override;
};

}  // namespace vantor
