#include "library/catalog_stored_form.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "json/json_reading.h"
#include "library/catalog_builder.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

Catalog sample() {
  CatalogBuilder builder;
  builder.add({.providerID = "77",
               .kind = LibraryKind::movies,
               .name = "A \"quoted\" n\xC3\xA4me\n",
               .category = "3",
               .artwork = "https://h.example/p.png",
               .fileExtension = "mp4",
               .plot = "",
               .rating = "7.1"});
  builder.add({.id = "episode:9",
               .providerID = "9",
               .kind = LibraryKind::shows,
               .name = "Pilot",
               .fileExtension = "mkv",
               .episode = 1,
               .season = -2,
               .isExample = true});
  builder.add(MediaCategory{u"3"_s, QString()});
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
  EXPECT_EQ(root.value(u"savedAt"_s).toDouble(), 1.25);
  EXPECT_EQ(root.value(u"items"_s).toArray().at(0).toObject(),
            QJsonDocument::fromJson(R"({"id":"movies:77","providerID":"77","kind":"movies",
                "name":"A \"quoted\" n\u00e4me\n","category":"3","fileExtension":"mp4","plot":"",
                "artwork":"https://h.example/p.png","rating":"7.1","isExample":false})")
                .object());
  const QJsonObject episode = root.value(u"items"_s).toArray().at(1).toObject();
  EXPECT_EQ(episode.value(u"season"_s).toInt(), -2);
  EXPECT_FALSE(episode.contains(u"artwork"_s)) << "absent, not null";
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
  for (const char* rest :
       {R"("categories":[])", R"("savedAt":1)", R"("categories":[{"id":"1"}],"savedAt":1)",
        R"("categories":{},"savedAt":1)", R"("categories":[],"savedAt":"1")",
        R"("categories":[],"savedAt":1e300)"})
    refused.push_back(document(item, rest));
  for (const QByteArray& whole : {document(item) + "x", QByteArray("[]"), QByteArray()})
    refused.push_back(whole);
  for (const QByteArray& json : refused)
    EXPECT_THROW(catalogFromJSON(json), JSONError) << json.toStdString();
}

TEST(Catalog, FindsEntriesByTheirWholeId) {
  EXPECT_EQ(Catalog::empty().savedAt(), Catalog::empty().savedAt());
  EXPECT_EQ(Catalog::empty().size(), 0u);
  const Catalog catalog = sample();
  EXPECT_EQ(catalog.indexOf(u"episode:9"_s), 1u);
  EXPECT_EQ(catalog.indexOf(u"movies:77"_s), 0u);
  EXPECT_EQ(catalog.indexOf(u"shows:77"_s), std::nullopt);
  EXPECT_EQ(catalog.indexOf(u"77"_s), std::nullopt);
}

}  // namespace
}  // namespace vantor::test
