#include "storage/secure_store.h"

#include <gtest/gtest.h>

#include <QUuid>

#include "platform/app_error.h"
#include "platform/secret_service_store.h"
#include "support/fake_credential_store.h"

namespace vantor {
namespace {

using Operation = test::FakeCredentialStore::Operation;

const QString name = QStringLiteral("provider");
const std::stop_token token;

template <class Call>
QString sentence(Call call) {
  try {
    call();
  } catch (const AppError& error) {
    return error.message;
  }
  return {};
}

class SecureStoreTest : public ::testing::Test {
 protected:
  test::FakeCredentialStore credentials;
  SecureStore secure{credentials, QStringLiteral("tv.vantor.player")};
};

TEST_F(SecureStoreTest, WritesByUpdateFirstThenAdd) {
  EXPECT_EQ(secure.read(name, token), std::nullopt);
  secure.write("first", name, token);
  EXPECT_EQ(credentials.calls(Operation::add), 1);
  secure.write("second", name, token);
  EXPECT_EQ(credentials.calls(Operation::add), 1);
  EXPECT_EQ(secure.read(name, token), QByteArray("second"));
  secure.remove(name, token);
  secure.remove(name, token);
  EXPECT_EQ(secure.read(name, token), std::nullopt);
}

TEST_F(SecureStoreTest, EachFailureHasItsSentence) {
  credentials.fail(Operation::copyMatching);
  EXPECT_EQ(sentence([&] { secure.read(name, token); }),
            QStringLiteral("Vantor could not read its saved account from Keychain. Allow access "
                           "and try again."));
  credentials.fail(Operation::add);
  EXPECT_EQ(sentence([&] { secure.write("x", name, token); }),
            QStringLiteral("Vantor could not securely save this account in Keychain."));
  credentials.fail(Operation::update);
  EXPECT_EQ(sentence([&] { secure.write("x", name, token); }),
            QStringLiteral("Vantor could not update its saved Keychain account."));
  EXPECT_EQ(credentials.calls(Operation::add), 1) << "no add after a failed update";
  credentials.fail(Operation::remove);
  EXPECT_EQ(sentence([&] { secure.remove(name, token); }),
            QStringLiteral("The saved account could not be removed from Keychain."));
}

TEST(SecureStore, KeepsSecretsInTheSecretService) {
  SecretServiceStore desktop;
  const SecureStore secure(desktop, QUuid::createUuid().toString());
  const QByteArray value("\x00\x01\xfe", 3);
  secure.write(value, name, token);
  EXPECT_EQ(secure.read(name, token), value);
  secure.remove(name, token);
  EXPECT_EQ(secure.read(name, token), std::nullopt);
}

}  // namespace
}  // namespace vantor
