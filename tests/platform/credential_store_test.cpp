// These tests talk to the Secret Service of the D-Bus session bus they run in.
#include <gtest/gtest.h>

#include <QUuid>

#include "platform/secret_service_store.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

class CredentialStoreTest : public ::testing::Test {
 protected:
  SecretServiceStore store;
  const CredentialKey key{u"tv.vantor.player.test"_s,
                          QUuid::createUuid().toString(QUuid::WithoutBraces)};
  const std::stop_token token;
  void TearDown() override { store.remove(key, token); }
};

TEST_F(CredentialStoreTest, MissingItemIsToldApartFromAFailureOrAStop) {
  EXPECT_EQ(store.copyMatching(key, token).status, CredentialStatus::itemNotFound);
  EXPECT_EQ(store.update(key, "x", token), CredentialStatus::itemNotFound);
  EXPECT_EQ(store.remove(key, token), CredentialStatus::itemNotFound);
  std::stop_source source;
  source.request_stop();
  EXPECT_EQ(store.copyMatching(key, source.get_token()).status, CredentialStatus::failure);
}

TEST_F(CredentialStoreTest, KeepsBytesExactlyUnderTheirName) {
  const QByteArray bytes("\x00\xff\x80key\n", 7);
  ASSERT_EQ(store.add(key, bytes, token), CredentialStatus::success);
  EXPECT_EQ(store.copyMatching(key, token).value, bytes);
  ASSERT_EQ(store.update(key, "second", token), CredentialStatus::success);
  EXPECT_EQ(store.copyMatching(key, token).value, "second");
  const CredentialKey other{key.service, key.account + QLatin1Char('2')};
  EXPECT_EQ(store.copyMatching(other, token).status, CredentialStatus::itemNotFound);
  ASSERT_EQ(store.remove(key, token), CredentialStatus::success);
  EXPECT_EQ(store.copyMatching(key, token).status, CredentialStatus::itemNotFound);
}

}  // namespace
}  // namespace vantor::test
