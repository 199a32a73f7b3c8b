#include "library/catalog_stored_form.h"

#include <rapidjson/writer.h>

#include <cmath>

#include "json/json_reading.h"
#include "library/catalog_builder.h"
#include "library/catalog_contents.h"

namespace vantor {
namespace {

// 2001-01-01 00:00:00 UTC.
constexpr Catalog::Time referenceDate{std::chrono::seconds(978'307'200)};

/// RapidJSON's output stream onto a std::string.
struct StringStream {
  using Ch = char;
  std::string& text;
  void Put(char c) { text.push_back(c); }
  void Flush() {}
};
using Writer = rapidjson::Writer<StringStream>;

void put(Writer& writer, const char* key, std::string_view value) {
  writer.Key(key);
  writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
}

void put(Writer& writer, const char* key, const QString& value) {
  put(writer, key, std::string_view(value.toStdString()));
}

std::string kindText(LibraryKind kind) {
  return rawValue(kind).toStdString();
}

}  // namespace

std::string CatalogWriter::toJSON(const Catalog& catalog) {
  const CatalogContents& contents = *catalog.contents_;
  std::string json;
  json.reserve(contents.text.size() + contents.rows.size() * 120);
  StringStream stream{json};
  Writer writer(stream);
  std::string id;
  writer.StartObject();
  writer.Key("items");
  writer.StartArray();
  for (std::size_t index = 0; index < contents.rows.size(); ++index) {
    const EntryRow& row = contents.rows[index];
    const auto text = [&](EntryText which) { return contents.textOf(index, which); };
    const auto optional = [&](EntryFlag flag, EntryText which, const char* key) {
      if (row.flags & flag) put(writer, key, text(which));
    };
    id = row.flags & hasOwnID
             ? std::string(text(EntryText::id))
             : kindText(row.kind).append(1, ':').append(text(EntryText::providerID));
    writer.StartObject();
    put(writer, "id", std::string_view(id));
    put(writer, "providerID", text(EntryText::providerID));
    put(writer, "kind", std::string_view(kindText(row.kind)));
    put(writer, "name", text(EntryText::name));
    put(writer, "category", std::string_view(contents.categoryIDs[row.category]));
    optional(hasArtwork, EntryText::artwork, "artwork");
    put(writer, "fileExtension", std::string_view(contents.extensions[row.fileExtension]));
    optional(hasPlot, EntryText::plot, "plot");
    optional(hasRating, EntryText::rating, "rating");
    optional(hasYear, EntryText::year, "year");
    if (row.flags & hasNumbers) {
      const EntryNumbers& numbers = contents.numbers.at(static_cast<std::uint32_t>(index));
      if (numbers.episode) writer.Key("episode"), writer.Int(*numbers.episode);
      if (numbers.season) writer.Key("season"), writer.Int(*numbers.season);
    }
    writer.Key("isExample");
    writer.Bool(row.flags & isSample);
    writer.EndObject();
  }
  writer.EndArray();
  writer.Key("categories");
  writer.StartArray();
  for (const MediaCategory& category : contents.categories) {
    writer.StartObject();
    put(writer, "id", category.id);
    put(writer, "name", category.name);
    writer.EndObject();
  }
  writer.EndArray();
  writer.Key("savedAt");
  writer.Double(std::chrono::duration<double>(contents.savedAt - referenceDate).count());
  writer.EndObject();
  return json;
}

namespace {

namespace od = simdjson::ondemand;

/// A field of an object that must be text when it is there.
struct TextField {
  std::string text;
  bool present = false;

  void read(od::value value) {
    if (value.type() != od::json_type::string) throw JSONError();
    text.clear();
    appendString(value, text);
    present = true;
  }
  void readOptional(od::value value) {
    present = false;
    if (value.type() != od::json_type::null)
      read(value);
    else
      expectValue(value);
  }
  std::string_view required() const {
    if (!present) throw JSONError();
    return text;
  }
  std::optional<std::string_view> optional() const {
    return present ? std::optional<std::string_view>(text) : std::nullopt;
  }
};

std::optional<int> optionalInteger(od::value value) {
  if (value.type() == od::json_type::null) {
    expectValue(value);
    return std::nullopt;
  }
  const std::int64_t number = value.get_int64();
  if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
    throw JSONError();
  return static_cast<int>(number);
}

class ItemReader {
 public:
  void read(od::object object, CatalogBuilder& builder) {
    for (TextField* field : {&id_, &providerID_, &kind_, &name_, &category_, &artwork_,
                             &fileExtension_, &plot_, &rating_, &year_})
      field->present = false;
    CatalogEntry entry;
    bool hasExampleMark = false;
    forEachField(object, [&](std::string_view key, od::value value) {
      if (TextField* text = required(key)) {
        text->read(value);
      } else if (TextField* optionalText = optional(key)) {
        optionalText->readOptional(value);
      } else if (key == "episode") {
        entry.episode = optionalInteger(value);
      } else if (key == "season") {
        entry.season = optionalInteger(value);
      } else if (key == "isExample") {
        entry.isExample = value.get_bool();
        hasExampleMark = true;
      } else {
        return false;
      }
      return true;
    });
    if (!hasExampleMark) throw JSONError();
    entry.kind = kindOf(kind_.required());
    entry.providerID = providerID_.required();
    // The common form takes no room of its own.
    const std::string_view id = id_.required();
    const std::string& prefix = kind_.text;
    const bool common = id.size() == prefix.size() + 1 + entry.providerID.size() &&
                        id.starts_with(prefix) && id[prefix.size()] == ':' &&
                        id.ends_with(entry.providerID);
    if (!common) entry.id = id;
    entry.name = name_.required();
    entry.category = category_.required();
    entry.fileExtension = fileExtension_.required();
    entry.artwork = artwork_.optional();
    entry.plot = plot_.optional();
    entry.rating = rating_.optional();
    entry.year = year_.optional();
    builder.add(entry);
  }

 private:
  static LibraryKind kindOf(std::string_view text) {
    if (text == "live") return LibraryKind::live;
    if (text == "movies") return LibraryKind::movies;
    if (text == "shows") return LibraryKind::shows;
    throw JSONError();
  }

  TextField* required(std::string_view key) {
    if (key == "id") return &id_;
    if (key == "providerID") return &providerID_;
    if (key == "kind") return &kind_;
    if (key == "name") return &name_;
    if (key == "category") return &category_;
    if (key == "fileExtension") return &fileExtension_;
    return nullptr;
  }

  TextField* optional(std::string_view key) {
    if (key == "artwork") return &artwork_;
    if (key == "plot") return &plot_;
    if (key == "rating") return &rating_;
    if (key == "year") return &year_;
    return nullptr;
  }

  TextField id_, providerID_, kind_, name_, category_, artwork_, fileExtension_, plot_, rating_,
      year_;
};

MediaCategory readCategory(od::object object) {
  TextField id;
  TextField name;
  forEachField(object, [&](std::string_view key, od::value value) {
    if (key != "id" && key != "name") return false;
    (key == "id" ? id : name).read(value);
    return true;
  });
  return {QString::fromStdString(std::string(id.required())),
          QString::fromStdString(std::string(name.required()))};
}

/// Calls `read` with each object of what must be an array of objects.
template <class Read>
void forEachObjectOf(od::value value, Read read) {
  if (value.type() != od::json_type::array || !forEachObject(value.get_array(), read))
    throw JSONError();
}

}  // namespace

Catalog catalogFromJSON(QByteArray json) {
  const auto expectedText = static_cast<std::size_t>(json.size()) / 2;
  std::optional<CatalogBuilder> builder;
  std::optional<std::vector<MediaCategory>> categories;
  std::optional<double> savedAt;
  readJSON([&] {
    JSONDocument document(std::move(json));
    ItemReader items;
    forEachField(document.object(), [&](std::string_view key, od::value value) {
      if (key == "items") {
        // Who repeats the key does not get all that room each time.
        builder.emplace(builder ? 0 : expectedText);
        forEachObjectOf(value, [&](od::object item) { items.read(item, *builder); });
      } else if (key == "categories") {
        categories.emplace();
        forEachObjectOf(
            value, [&](od::object category) { categories->push_back(readCategory(category)); });
      } else if (key == "savedAt") {
        savedAt = double(value.get_double());
      } else {
        return false;
      }
      return true;
    });
    document.expectEnd();
  });
  // Beyond what the clock can hold lies no time of saving.
  if (!builder || !categories || !savedAt || !(std::abs(*savedAt) < 8e9)) throw JSONError();
  for (MediaCategory& category : *categories) builder->add(std::move(category));
  return builder->build(referenceDate + std::chrono::duration_cast<Catalog::Time::duration>(
                                            std::chrono::duration<double>(*savedAt)));
}

}  // namespace vantor
