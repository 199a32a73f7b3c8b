#include "support/fake_credential_store.h"

namespace vantor::test {

bool FakeCredentialStore::begins(Operation operation) {
  ++calls_[operation];
  return !failing_.contains(operation);
}

CredentialStore::Match FakeCredentialStore::copyMatching(const CredentialKey& key,
                                                         std::stop_token) {
  const std::lock_guard lock(mutex_);
  if (!begins(Operation::copyMatching)) return {CredentialStatus::failure, {}};
  const auto item = items_.find(key.account);
  if (item == items_.end()) return {CredentialStatus::itemNotFound, {}};
  return {CredentialStatus::success, item->second};
}

CredentialStatus FakeCredentialStore::update(const CredentialKey& key, const QByteArray& value,
                                             std::stop_token) {
  const std::lock_guard lock(mutex_);
  if (!begins(Operation::update)) return CredentialStatus::failure;
  const auto item = items_.find(key.account);
  if (item == items_.end()) return CredentialStatus::itemNotFound;
  item->second = value;
  return CredentialStatus::success;
}

CredentialStatus FakeCredentialStore::add(const CredentialKey& key, const QByteArray& value,
                                          std::stop_token) {
  const std::lock_guard lock(mutex_);
  if (!begins(Operation::add)) return CredentialStatus::failure;
  items_[key.account] = value;
  return CredentialStatus::success;
}

CredentialStatus FakeCredentialStore::remove(const CredentialKey& key, std::stop_token) {
  const std::lock_guard lock(mutex_);
  if (!begins(Operation::remove)) return CredentialStatus::failure;
  return items_.erase(key.account) > 0 ? CredentialStatus::success : CredentialStatus::itemNotFound;
}

void FakeCredentialStore::fail(Operation operation) {
  const std::lock_guard lock(mutex_);
  failing_.insert(operation);
}

void FakeCredentialStore::work(Operation operation) {
  const std::lock_guard lock(mutex_);
  failing_.erase(operation);
}

std::optional<QByteArray> FakeCredentialStore::value(const QString& account) const {
  const std::lock_guard lock(mutex_);
  const auto item = items_.find(account);
  return item == items_.end() ? std::nullopt : std::optional(item->second);
}

void FakeCredentialStore::put(const QString& account, const QByteArray& value) {
  const std::lock_guard lock(mutex_);
  items_[account] = value;
}

int FakeCredentialStore::calls(Operation operation) const {
  const std::lock_guard lock(mutex_);
  const auto count = calls_.find(operation);
  return count == calls_.end() ? 0 : count->second;
}

}  // namespace vantor::test
