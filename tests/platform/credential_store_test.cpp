// These tests talk to the Secret Service of the D-Bus session bus they run in.
#include <gtest/gtest.h>

#include <QUuid>

#include "platform/secret_service_store.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

TEST(CredentialStore, KeepsBytesExactlyUnderTheirNameUntilTheyAreRemoved) {
  using enum CredentialStatus;
  SecretServiceStore store;
  const CredentialKey key{u"tv.vantor.player.test"_s,
                          QUuid::createUuid().toString(QUuid::WithoutBraces)};
  const std::stop_token token;
  const auto expectNone = [&] {
    EXPECT_EQ(store.copyMatching(key, token).status, itemNotFound);
    EXPECT_EQ(store.update(key, "x", token), itemNotFound);
    EXPECT_EQ(store.remove(key, token), itemNotFound);
  };
  expectNone();
  const QByteArray bytes("\x00\xff\x80key\n", 7);
  ASSERT_EQ(store.add(key, bytes, token), success);
  EXPECT_EQ(store.copyMatching(key, token).value, bytes);
  EXPECT_EQ(store.update(key, "second", token), success);
  EXPECT_EQ(store.copyMatching(key, token).value, "second");
  const CredentialKey other{key.service, key.account + QLatin1Char('2')};
  EXPECT_EQ(store.copyMatching(other, token).status, itemNotFound);
  std::stop_source stopped;
  stopped.request_stop();
  EXPECT_EQ(store.copyMatching(key, stopped.get_token()).status, failure);
  EXPECT_EQ(store.remove(key, token), success);
  expectNone();
}

}  // namespace
}  // namespace vantor::test
