#include "storage/secure_store.h"

#include <gtest/gtest.h>

#include "support/fake_credential_store.h"
#include "support/sentence.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;
using Operation = FakeCredentialStore::Operation;

const QString name = u"provider"_s;
const std::stop_token token;

class SecureStoreTest : public ::testing::Test {
 protected:
  FakeCredentialStore credentials;
  SecureStore secure{credentials, u"tv.vantor.player"_s};
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

TEST_F(SecureStoreTest, AFailedUpdateIsToldAndAddsNothing) {
  credentials.fail(Operation::update);
  EXPECT_EQ(sentence([&] { secure.write("x", name, token); }),
            u"Vantor could not update its saved Keychain account."_s);
  EXPECT_EQ(credentials.calls(Operation::add), 0);
}

}  // namespace
}  // namespace vantor::test
