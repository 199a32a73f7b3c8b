#include "library/catalog_stored_form.h"

#include <gtest/gtest.h>

#include <QJsonDocument>

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

TEST(StoredCatalog, HasTheDocumentedFormAndReadsBackEqual) {
  const Catalog original = sample();
  const QByteArray json = QByteArray::fromStdString(CatalogWriter::toJSON(original));
  EXPECT_EQ(QJsonDocument::fromJson(json), QJsonDocument::fromJson(R"({"items":[
      {"id":"movies:77","providerID":"77","kind":"movies","name":"A \"quoted\" n\u00e4me\n",
       "category":"3","fileExtension":"mp4","plot":"","artwork":"https://h.example/p.png",
       "rating":"7.1","isExample":false},
      {"id":"episode:9","providerID":"9","kind":"shows","name":"Pilot","category":"",
       "fileExtension":"mkv","episode":1,"season":-2,"isExample":true}],
      "categories":[{"id":"3","name":""}],"savedAt":1.25})"))
      << json.toStdString();
  const Catalog read = catalogFromJSON(json);
  ASSERT_EQ(read.size(), original.size());
  for (std::size_t i = 0; i < read.size(); ++i) EXPECT_EQ(read.item(i), original.item(i));
  EXPECT_EQ(read.categories(), original.categories());
  EXPECT_EQ(read.savedAt(), original.savedAt());
}

TEST(StoredCatalog, IsReadStrictly) {
  const QByteArray sound =
      R"({"items":[{"id":"live:1","providerID":"1","kind":"live","name":"n","category":"c",
          "fileExtension":"ts","isExample":false,"plot":null,"unknown":{"x":[1]}}],
          "categories":[],"savedAt":1})";
  const Catalog catalog = catalogFromJSON(sound);
  ASSERT_EQ(catalog.size(), 1u);
  EXPECT_EQ(catalog.item(0).plot, std::nullopt);

  std::vector<std::pair<QByteArray, QByteArray>> damages = {
      {R"("kind":"live")", R"("kind":"Live")"},
      {R"("name":"n")", R"("name":7)"},
      {R"("isExample":false)", R"("isExample":0)"},
      {R"("plot":null)", R"("plot":1)"},
      {R"("plot":null)", R"("episode":1.5)"},
      {R"("plot":null)", R"("season":"1")"},
      {R"("plot":null)", R"("season":99999999999)"},
      {R"("categories":[])", R"("categories":[{"id":"1"}])"},
      {R"("categories":[])", R"("categories":{})"},
      {R"("savedAt":1)", R"("savedAt":"1")"},
      {R"("savedAt":1)", R"("savedAt":1e300)"},
      {sound, "[]"}};
  for (const char* key : {"id", "providerID", "kind", "name", "category", "fileExtension",
                          "isExample", "categories", "savedAt"})
    damages.emplace_back(QByteArray("\"") + key + '"', "\"other\"");
  for (const auto& [from, to] : damages) {
    const QByteArray damaged = QByteArray(sound).replace(from, to);
    ASSERT_NE(damaged, sound) << from.toStdString();
    EXPECT_THROW(catalogFromJSON(damaged), JSONError) << damaged.toStdString();
  }
}

TEST(Catalog, FindsEntriesByTheirWholeId) {
  const Catalog catalog = sample();
  EXPECT_EQ(catalog.indexOf(u"episode:9"_s), 1u);
  EXPECT_EQ(catalog.indexOf(u"movies:77"_s), 0u);
  EXPECT_EQ(catalog.indexOf(u"shows:77"_s), std::nullopt);
  EXPECT_EQ(catalog.indexOf(u"77"_s), std::nullopt);
}

}  // namespace
}  // namespace vantor::test
