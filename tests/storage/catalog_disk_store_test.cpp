#include "storage/catalog_disk_store.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

#include "library/catalog_builder.h"
#include "library/catalog_stored_form.h"
#include "platform/app_error.h"
#include "platform/folders.h"
#include "storage/private_file.h"
#include "storage/sealed_box.h"
#include "storage/secure_store.h"
#include "support/awaited.h"
#include "support/fake_credential_store.h"
#include "support/files.h"

namespace vantor::test {
namespace {

using Operation = FakeCredentialStore::Operation;
using MaybeCatalog = std::optional<Catalog>;

Catalog library(int entries) {
  CatalogBuilder builder;
  for (int i = 0; i < entries; ++i)
    builder.add({.providerID = std::to_string(i), .name = "Channel", .fileExtension = "m3u8"});
  return builder.build(std::chrono::system_clock::now());
}

mode_t mode(const QString& path) {
  struct stat status = {};
  return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
}

class CatalogDiskStoreTest : public ::testing::Test {
 protected:
  QTemporaryDir home;
  FakeCredentialStore credentials;
  SecureStore secrets{credentials, u"tv.vantor.player"_s};
  Folders folders{home.filePath(u"data"_s), home.path(), home.path()};
  const QString folder = home.filePath(u"data/Vantor Player Mac Preview/Catalog"_s);
  const QUuid account = QUuid(u"0f3c2a58-7b1d-4e2a-9c3f-5d6e7f8a9b0c"_s);

  std::shared_ptr<CatalogDiskStore> create() {
    return CatalogDiskStore::create(secrets, folders, std::stop_token());
  }
  QString file(const char* kind) const {
    return folder + u"/0F3C2A58-7B1D-4E2A-9C3F-5D6E7F8A9B0C-"_s + QString::fromLatin1(kind) +
           u".bin"_s;
  }
};

TEST_F(CatalogDiskStoreTest, KeepsALibraryAsNonceCiphertextAndTag) {
  const auto store = create();
  const Catalog catalog = library(3);
  EXPECT_EQ(awaited<MaybeCatalog>(store->load(account, LibraryKind::live)), std::nullopt);
  awaited<Done>(store->save(catalog, account, LibraryKind::live));
  const QByteArray first = private_file::read(file("live"));
  const std::string json = CatalogWriter::toJSON(catalog);
  EXPECT_EQ(first.size(), static_cast<qsizetype>(json.size()) + 28);
  EXPECT_FALSE(first.contains("Channel"));
  const QByteArray key = *credentials.value(u"catalog-key"_s);
  EXPECT_EQ(key.size(), 32);
  EXPECT_EQ(sealed_box::open(first, key).toStdString(), json);
  EXPECT_EQ(mode(file("live")), 0600u);
  EXPECT_EQ(mode(folder), 0700u);
  EXPECT_EQ(mode(home.filePath(u"data"_s)), 0700u);

  awaited<Done>(store->save(catalog, account, LibraryKind::live));
  const QByteArray second = private_file::read(file("live"));
  EXPECT_NE(first, second);
  const auto loaded = awaited<MaybeCatalog>(create()->load(account, LibraryKind::live));
  ASSERT_TRUE(loaded.has_value());
  EXPECT_EQ(loaded->size(), 3u);
}

TEST_F(CatalogDiskStoreTest, RefusesEveryDamagedFile) {
  const auto store = create();
  awaited<Done>(store->save(library(1), account, LibraryKind::movies));
  const std::string good = private_file::read(file("movies")).toStdString();
  const auto altered = [&](std::size_t position) {
    return std::string(good).replace(position, 1, 1, static_cast<char>(good[position] ^ 1));
  };
  const std::string damaged[] = {
      "", good.substr(0, 27), good.substr(0, good.size() - 1), good + 'x',
      // In the nonce, the ciphertext and the tag.
      altered(0), altered(12), altered(good.size() - 1),
      sealed_box::seal("{\"items\":7}", *credentials.value(catalogKeyItem)),
      sealed_box::seal("{}", QByteArray(32, 'k'))};
  for (const std::string& bytes : damaged) {
    private_file::replace(file("movies"), bytes);
    EXPECT_ANY_THROW(awaited<MaybeCatalog>(store->load(account, LibraryKind::movies)))
        << &bytes - damaged;
  }
  QFile::remove(file("movies"));
  ASSERT_TRUE(QDir().mkdir(file("movies")));
  EXPECT_ANY_THROW(awaited<MaybeCatalog>(store->load(account, LibraryKind::movies)));
}

TEST_F(CatalogDiskStoreTest, ClearRemovesTheFilesOfThatAccountOnly) {
  const auto store = create();
  awaited<Done>(store->clear(account));
  const QUuid other = QUuid::createUuid();
  for (const LibraryKind kind : allLibraryKinds) {
    awaited<Done>(store->save(library(0), account, kind));
    awaited<Done>(store->save(library(0), other, kind));
  }
  awaited<Done>(store->clear(account));
  EXPECT_EQ(QDir(folder).entryList(QDir::Files).size(), 3);
  EXPECT_TRUE(awaited<MaybeCatalog>(store->load(other, LibraryKind::shows)).has_value());
}

TEST_F(CatalogDiskStoreTest, FailsWithoutAKeyOrAFolder) {
  for (const Operation operation : {Operation::add, Operation::copyMatching}) {
    credentials.fail(operation);
    EXPECT_THROW(create(), AppError);
    credentials.work(operation);
  }
  EXPECT_FALSE(QDir(folder).exists()) << "no folder without a key";
  writeFile(home.filePath(u"data"_s));
  EXPECT_ANY_THROW(create());
  QFile::remove(home.filePath(u"data"_s));
  credentials.put(catalogKeyItem, "short");
  EXPECT_ANY_THROW(awaited<Done>(create()->save(library(1), account, LibraryKind::live)));
}

TEST(PrivateFile, FollowsNoLinkOutOfItsFolder) {
  QTemporaryDir folder;
  const QString target = folder.filePath(u"target"_s);
  const QString path = folder.filePath(u"file.bin"_s);
  private_file::replace(target, "untouched");
  ASSERT_TRUE(QFile::link(target, path + u".new"_s));
  EXPECT_THROW(private_file::replace(path, "new"), std::system_error);
  EXPECT_EQ(private_file::read(target), "untouched");
}

}  // namespace
}  // namespace vantor::test
