#pragma once

#include <map>
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
    const auto item = items_.find(key.account);
    if (item == items_.end()) return {CredentialStatus::itemNotFound, {}};
    return {CredentialStatus::success, item->second};
  }
  CredentialStatus update(const CredentialKey& key, const QByteArray& value,
                          std::stop_token token) override {
    const std::lock_guard lock(mutex_);
    if (!begins(Operation::update, token)) return CredentialStatus::failure;
    const auto item = items_.find(key.account);
    if (item == items_.end()) return CredentialStatus::itemNotFound;
    item->second = value;
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
    return items_.erase(key.account) > 0 ? CredentialStatus::success
                                         : CredentialStatus::itemNotFound;
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
    const auto item = items_.find(account);
    return item == items_.end() ? std::nullopt : std::optional(item->second);
  }
  void put(const QString& account, const QByteArray& value) {
    const std::lock_guard lock(mutex_);
    items_[account] = value;
  }
  int calls(Operation operation) const {
    const std::lock_guard lock(mutex_);
    const auto count = calls_.find(operation);
    return count == calls_.end() ? 0 : count->second;
  }

 private:
  bool begins(Operation operation, const std::stop_token& token) {
    ++calls_[operation];
    return !failing_.contains(operation) && !token.stop_requested();
  }

  mutable std::mutex mutex_;
  std::map<QString, QByteArray> items_;
  std::set<Operation> failing_;
  std::map<Operation, int> calls_;
};

}  // namespace vantor::test
