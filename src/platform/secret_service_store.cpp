#include "platform/secret_service_store.h"

#include <libsecret/secret.h>

#include <chrono>
#include <memory>

namespace vantor {
namespace {

using namespace std::chrono_literals;

// D-Bus itself gives a call up after 25 s, which a keyring on a slow disk may need.
constexpr std::chrono::milliseconds longestCall = 90s;

const SecretSchema schema = {"tv.vantor.player.Credential",
                             SECRET_SCHEMA_DONT_MATCH_NAME,
                             {{"service", SECRET_SCHEMA_ATTRIBUTE_STRING},
                              {"account", SECRET_SCHEMA_ATTRIBUTE_STRING},
                              {nullptr, SECRET_SCHEMA_ATTRIBUTE_STRING}}};

struct Unref {
  void operator()(void* object) const { g_object_unref(object); }
  void operator()(GHashTable* table) const { g_hash_table_unref(table); }
  void operator()(SecretValue* value) const { secret_value_unref(value); }
  void operator()(GError* error) const { g_error_free(error); }
};
template <class T>
using Owned = std::unique_ptr<T, Unref>;

/// A GCancellable that a stop request cancels.
class Cancellation {
 public:
  explicit Cancellation(const std::stop_token& token)
      : cancellable_(g_cancellable_new()), onStop_(token, CancelCall{cancellable_.get()}) {}
  GCancellable* get() const { return cancellable_.get(); }

 private:
  struct CancelCall {
    GCancellable* cancellable;
    void operator()() const { g_cancellable_cancel(cancellable); }
  };
  Owned<GCancellable> cancellable_;
  std::stop_callback<CancelCall> onStop_;
};

Owned<GHashTable> attributes(const CredentialKey& key) {
  return Owned<GHashTable>(secret_attributes_build(&schema, "service",
                                                   key.service.toUtf8().constData(), "account",
                                                   key.account.toUtf8().constData(), nullptr));
}

Owned<SecretValue> secretValue(const QByteArray& bytes) {
  return Owned<SecretValue>(
      secret_value_new(bytes.constData(), bytes.size(), "application/octet-stream"));
}

/// The service that libsecret uses while somebody holds it, which keeps its connection; null when
/// there is none.
Owned<SecretService> join(GCancellable* cancellable) {
  const Owned<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, nullptr));
  // As GLib makes it, the connection ends the program when the session bus ends.
  if (bus) g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
  Owned<SecretService> service(secret_service_get_sync(SECRET_SERVICE_NONE, cancellable, nullptr));
  if (service) g_dbus_proxy_set_default_timeout(G_DBUS_PROXY(service.get()), longestCall.count());
  return service;
}

struct Found {
  CredentialStatus status = CredentialStatus::failure;
  Owned<SecretItem> item;
};

/// The first item that matches, unlocked, with its value; not found while a locked collection may
/// hide it.
Found search(SecretService* service, const CredentialKey& key, GCancellable* cancellable) {
  GError* error = nullptr;
  const auto query = attributes(key);
  GList* items = secret_service_search_sync(
      service, &schema, query.get(),
      static_cast<SecretSearchFlags>(SECRET_SEARCH_UNLOCK | SECRET_SEARCH_LOAD_SECRETS),
      cancellable, &error);
  if (error) {
    Owned<GError> owned(error);
    return {};
  }
  if (!items) return {CredentialStatus::itemNotFound, nullptr};
  Owned<SecretItem> first(static_cast<SecretItem*>(g_object_ref(items->data)));
  g_list_free_full(items, g_object_unref);
  // A prompt that the user dismissed is no error to libsecret, but leaves the item locked.
  if (secret_item_get_locked(first.get())) return {};
  return {CredentialStatus::success, std::move(first)};
}

/// The collection that new items go to, null when it cannot be told or there is none.
Owned<SecretCollection> defaultCollection(SecretService* service, GCancellable* cancellable) {
  GError* error = nullptr;
  Owned<SecretCollection> collection(secret_collection_for_alias_sync(
      service, SECRET_COLLECTION_DEFAULT, SECRET_COLLECTION_NONE, cancellable, &error));
  const Owned<GError> owned(error);
  return collection;
}

bool unlock(SecretService* service, SecretCollection* collection, GCancellable* cancellable) {
  const std::unique_ptr<GList, decltype(&g_list_free)> wanted(g_list_append(nullptr, collection),
                                                              g_list_free);
  GError* error = nullptr;
  const gint unlocked =
      secret_service_unlock_sync(service, wanted.get(), cancellable, nullptr, &error);
  const Owned<GError> owned(error);
  return unlocked > 0;
}

Found find(const CredentialKey& key, GCancellable* cancellable) {
  const auto service = join(cancellable);
  if (!service) return {};
  Found found = search(service.get(), key, cancellable);
  if (found.status != CredentialStatus::itemNotFound) return found;
  // Some services, as KeePassXC, tell of nothing that is locked.
  const auto collection = defaultCollection(service.get(), cancellable);
  if (!collection || !secret_collection_get_locked(collection.get())) return found;
  if (!unlock(service.get(), collection.get(), cancellable)) return {};
  return search(service.get(), key, cancellable);
}

}  // namespace

CredentialStore::Match SecretServiceStore::copyMatching(const CredentialKey& key,
                                                        std::stop_token token) {
  const Cancellation cancellation(token);
  const Found found = find(key, cancellation.get());
  if (found.status != CredentialStatus::success) return {found.status, {}};
  const Owned<SecretValue> value(secret_item_get_secret(found.item.get()));
  if (!value) return {CredentialStatus::failure, {}};
  gsize length = 0;
  const gchar* bytes = secret_value_get(value.get(), &length);
  return {CredentialStatus::success, QByteArray(bytes, static_cast<qsizetype>(length))};
}

CredentialStatus SecretServiceStore::update(const CredentialKey& key, const QByteArray& value,
                                            std::stop_token token) {
  const Cancellation cancellation(token);
  const Found found = find(key, cancellation.get());
  if (found.status != CredentialStatus::success) return found.status;
  GError* error = nullptr;
  const auto secret = secretValue(value);
  secret_item_set_secret_sync(found.item.get(), secret.get(), cancellation.get(), &error);
  const Owned<GError> owned(error);
  return error ? CredentialStatus::failure : CredentialStatus::success;
}

CredentialStatus SecretServiceStore::add(const CredentialKey& key, const QByteArray& value,
                                         std::stop_token token) {
  const Cancellation cancellation(token);
  const auto service = join(cancellation.get());
  if (!service) return CredentialStatus::failure;
  GError* error = nullptr;
  const auto query = attributes(key);
  const auto secret = secretValue(value);
  // The label is what a keyring browser lists; the Secret Service wants one.
  const QByteArray label = (key.service + QLatin1Char(' ') + key.account).toUtf8();
  const gboolean stored =
      secret_service_store_sync(service.get(), &schema, query.get(), SECRET_COLLECTION_DEFAULT,
                                label.constData(), secret.get(), cancellation.get(), &error);
  const Owned<GError> owned(error);
  return stored && !error ? CredentialStatus::success : CredentialStatus::failure;
}

CredentialStatus SecretServiceStore::remove(const CredentialKey& key, std::stop_token token) {
  const Cancellation cancellation(token);
  const Found found = find(key, cancellation.get());
  if (found.status != CredentialStatus::success) return found.status;
  GError* error = nullptr;
  const gboolean removed = secret_item_delete_sync(found.item.get(), cancellation.get(), &error);
  const Owned<GError> owned(error);
  return removed && !error ? CredentialStatus::success : CredentialStatus::failure;
}

}  // namespace vantor
