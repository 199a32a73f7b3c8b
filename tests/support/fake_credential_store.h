#pragma once

#include <QHash>
#include <mutex>
#include <set>

#include "platform/credential_store.h"

namespace vantor::test {

/// Credentials in memory, with operations that fail when told to, or stopped. Safe from any
/// thread.
class FakeCredentialStore final : public CredentialStore {
 public:
  enum class Operation { copyMatching, update, add, remove };

  Match copyMatching(const CredentialKey& key, std::stop_token token) override {
    const std::lock_guard lock(mutex_);
    if (!begins(Operation::copyMatching, token)) return {CredentialStatus::failure, {}};
    if (!items_.contains(key.account)) return {CredentialStatus::itemNotFound, {}};
    return {CredentialStatus::success, items_.value(key.account)};
  }
  CredentialStatus update(const CredentialKey& key, const QByteArray& value,
                          std::stop_token token) override {
    const std::lock_guard lock(mutex_);
    if (!begins(Operation::update, token)) return CredentialStatus::failure;
    if (!items_.contains(key.account)) return CredentialStatus::itemNotFound;
    items_[key.account] = value;
    return CredentialStatus::success;
  }
  CredentialStatus add(const CredentialKey& key, const QByteArray& value,
                       std::stop_token token) override {
    const std::lock_guard lock(mutex_);
    if (!begins(Operation::add, token)) return CredentialStatus::failure;
    items_[key.account] = value;
    return CredentialStatus::success;
  }
  CredentialStatus remove(const CredentialKey& key, std::stop_token token) override {
    const std::lock_guard lock(mutex_);
    if (!begins(Operation::remove, token)) return CredentialStatus::failure;
    return items_.remove(key.account) ? CredentialStatus::success : CredentialStatus::itemNotFound;
  }

  void fail(Operation operation) {
    const std::lock_guard lock(mutex_);
    failing_.insert(operation);
  }
  void work(Operation operation) {
    const std::lock_guard lock(mutex_);
    failing_.erase(operation);
  }
  std::optional<QByteArray> value(const QString& account) const {
    const std::lock_guard lock(mutex_);
    return items_.contains(account) ? std::optional(items_.value(account)) : std::nullopt;
  }
  void put(const QString& account, const QByteArray& value) {
    const std::lock_guard lock(mutex_);
    items_[account] = value;
  }
  int calls(Operation operation) const {
    const std::lock_guard lock(mutex_);
    return calls_.value(operation);
  }

 private:
  bool begins(Operation operation, const std::stop_token& token) {
    ++calls_[operation];
    return !failing_.contains(operation) && !token.stop_requested();
  }

  mutable std::mutex mutex_;
  QHash<QString, QByteArray> items_;
  std::set<Operation> failing_;
  QHash<Operation, int> calls_;
};

}  // namespace vantor::test
