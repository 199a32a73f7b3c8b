#pragma once

#include <map>
#include <mutex>
#include <set>

#include "platform/credential_store.h"

namespace vantor::test {

/// Credentials in memory, with operations that fail when told to. Safe from any thread.
class FakeCredentialStore final : public CredentialStore {
 public:
  enum class Operation { copyMatching, update, add, remove };

  Match copyMatching(const CredentialKey& key, std::stop_token token) override;
  CredentialStatus update(const CredentialKey& key, const QByteArray& value,
                          std::stop_token token) override;
  CredentialStatus add(const CredentialKey& key, const QByteArray& value,
                       std::stop_token token) override;
  CredentialStatus remove(const CredentialKey& key, std::stop_token token) override;

  void fail(Operation operation);
  void work(Operation operation);
  std::optional<QByteArray> value(const QString& account) const;
  void put(const QString& account, const QByteArray& value);
  int calls(Operation operation) const;

 private:
  bool begins(Operation operation);

  mutable std::mutex mutex_;
  std::map<QString, QByteArray> items_;
  std::set<Operation> failing_;
  std::map<Operation, int> calls_;
};

}  // namespace vantor::test
