#include "library/catalog_stored_form.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "json/json_reading.h"
#include "library/catalog_builder.h"

namespace vantor {
namespace {

Catalog sample() {
  CatalogBuilder builder;
  CatalogEntry movie;
  movie.providerID = "77";
  movie.kind = LibraryKind::movies;
  movie.name = "A \"quoted\" n\xC3\xA4me\n";
  movie.category = "3";
  movie.artwork = "https://h.example/p.png";
  movie.fileExtension = "mp4";
  movie.plot = "";
  movie.rating = "7.1";
  builder.add(movie);
  CatalogEntry episode;
  episode.id = "episode:9";
  episode.providerID = "9";
  episode.kind = LibraryKind::shows;
  episode.name = "Pilot";
  episode.fileExtension = "mkv";
  episode.episode = 1;
  episode.season = -2;
  episode.isExample = true;
  builder.add(episode);
  builder.add(MediaCategory{QStringLiteral("3"), QString()});
  return builder.build(Catalog::Time(std::chrono::milliseconds(978'307'201'250)));
}

TEST(StoredCatalog, ReadsBackEqual) {
  const Catalog original = sample();
  const Catalog read = catalogFromJSON(QByteArray::fromStdString(CatalogWriter::toJSON(original)));
  ASSERT_EQ(read.size(), original.size());
  for (std::size_t i = 0; i < read.size(); ++i) EXPECT_EQ(read.item(i), original.item(i));
  EXPECT_EQ(read.categories(), original.categories());
  EXPECT_EQ(read.savedAt(), original.savedAt());
}

TEST(StoredCatalog, HasTheDocumentedForm) {
  const QJsonObject root =
      QJsonDocument::fromJson(QByteArray::fromStdString(CatalogWriter::toJSON(sample()))).object();
  EXPECT_EQ(root.value(QStringLiteral("savedAt")).toDouble(), 1.25);
  const QJsonObject movie = root.value(QStringLiteral("items")).toArray().at(0).toObject();
  EXPECT_EQ(movie,
            QJsonObject({{QStringLiteral("id"), QStringLiteral("movies:77")},
                         {QStringLiteral("providerID"), QStringLiteral("77")},
                         {QStringLiteral("kind"), QStringLiteral("movies")},
                         {QStringLiteral("name"), QString::fromUtf8("A \"quoted\" n\u00e4me\n")},
                         {QStringLiteral("category"), QStringLiteral("3")},
                         {QStringLiteral("artwork"), QStringLiteral("https://h.example/p.png")},
                         {QStringLiteral("fileExtension"), QStringLiteral("mp4")},
                         {QStringLiteral("plot"), QString::fromLatin1("")},
                         {QStringLiteral("rating"), QStringLiteral("7.1")},
                         {QStringLiteral("isExample"), false}}));
  const QJsonObject episode = root.value(QStringLiteral("items")).toArray().at(1).toObject();
  EXPECT_EQ(episode.value(QStringLiteral("season")).toInt(), -2);
  EXPECT_FALSE(episode.contains(QStringLiteral("artwork"))) << "absent, not null";
}

TEST(StoredCatalog, IsReadStrictly) {
  const QByteArray item =
      R"({"id":"live:1","providerID":"1","kind":"live","name":"n","category":"c","fileExtension":"ts","isExample":false,"plot":null,"unknown":{"x":[1]}})";
  const auto document = [](const QByteArray& items,
                           const QByteArray& rest = R"("categories":[],"savedAt":1)") {
    return QByteArray("{\"items\":[" + items + "]," + rest + "}");
  };
  const Catalog catalog = catalogFromJSON(document(item));
  ASSERT_EQ(catalog.size(), 1u);
  EXPECT_EQ(catalog.item(0).plot, std::nullopt);

  std::vector<QByteArray> refused;
  for (const char* key :
       {"id", "providerID", "kind", "name", "category", "fileExtension", "isExample"}) {
    QByteArray without = item;
    refused.push_back(document(without.replace(QByteArray("\"") + key + "\"", "\"other\"")));
  }
  const std::pair<const char*, const char*> changes[] = {
      {"\"kind\":\"live\"", "\"kind\":\"Live\""}, {"\"name\":\"n\"", "\"name\":7"},
      {"\"isExample\":false", "\"isExample\":0"}, {"\"plot\":null", "\"plot\":1"},
      {"\"plot\":null", "\"episode\":1.5"},       {"\"plot\":null", "\"season\":\"1\""},
      {"\"plot\":null", "\"season\":99999999999"}};
  for (const auto& [from, to] : changes)
    refused.push_back(document(QByteArray(item).replace(from, to)));
  refused.push_back(document(item, R"("categories":[])"));
  refused.push_back(document(item, R"("savedAt":1)"));
  refused.push_back(document(item, R"("categories":[{"id":"1"}],"savedAt":1)"));
  refused.push_back(document(item, R"("categories":{},"savedAt":1)"));
  refused.push_back(document(item, R"("categories":[],"savedAt":"1")"));
  refused.push_back(document(item, R"("categories":[],"savedAt":1e300)"));
  refused.push_back(document(item) + "x");
  refused.push_back("[]");
  refused.push_back("");
  for (const QByteArray& json : refused)
    EXPECT_THROW(catalogFromJSON(json), JSONError) << json.toStdString();
}

TEST(Catalog, EmptyIsSharedAndKeepsItsTime) {
  EXPECT_EQ(Catalog::empty().savedAt(), Catalog::empty().savedAt());
  EXPECT_EQ(Catalog::empty().size(), 0u);
}

TEST(Catalog, FindsEntriesByTheirWholeId) {
  const Catalog catalog = sample();
  EXPECT_EQ(catalog.indexOf(QStringLiteral("episode:9")), 1u);
  EXPECT_EQ(catalog.indexOf(QStringLiteral("movies:77")), 0u);
  EXPECT_EQ(catalog.indexOf(QStringLiteral("shows:77")), std::nullopt);
  EXPECT_EQ(catalog.indexOf(QStringLiteral("77")), std::nullopt);
}

}  // namespace
}  // namespace vantor
