// The built-in sample library, for exploring the interface without a provider.
#include <QCoreApplication>

#include "core/app_model.h"
#include "library/catalog_builder.h"

namespace vantor {

using namespace Qt::StringLiterals;

namespace {

struct SampleLibrary {
  LibraryKind kind;
  std::array<const char*, 6> titles;
};

constexpr std::array<SampleLibrary, 3> samples = {{
    {LibraryKind::live,
     {QT_TRANSLATE_NOOP("SampleLibrary", "World window"),
      QT_TRANSLATE_NOOP("SampleLibrary", "The outdoors"),
      QT_TRANSLATE_NOOP("SampleLibrary", "Studio sessions"),
      QT_TRANSLATE_NOOP("SampleLibrary", "At the table"),
      QT_TRANSLATE_NOOP("SampleLibrary", "City stories"),
      QT_TRANSLATE_NOOP("SampleLibrary", "The quiet hour")}},
    {LibraryKind::movies,
     {QT_TRANSLATE_NOOP("SampleLibrary", "Across the valley"),
      QT_TRANSLATE_NOOP("SampleLibrary", "The long way home"),
      QT_TRANSLATE_NOOP("SampleLibrary", "After the rain"),
      QT_TRANSLATE_NOOP("SampleLibrary", "A place to begin"),
      QT_TRANSLATE_NOOP("SampleLibrary", "The night garden"),
      QT_TRANSLATE_NOOP("SampleLibrary", "Open horizons")}},
    {LibraryKind::shows,
     {QT_TRANSLATE_NOOP("SampleLibrary", "Wild places"),
      QT_TRANSLATE_NOOP("SampleLibrary", "Made by hand"),
      QT_TRANSLATE_NOOP("SampleLibrary", "The art of living"),
      QT_TRANSLATE_NOOP("SampleLibrary", "Outside the frame"),
      QT_TRANSLATE_NOOP("SampleLibrary", "Along the coast"),
      QT_TRANSLATE_NOOP("SampleLibrary", "Extraordinary everyday")}},
}};

QString translated(const char* text) {
  return QCoreApplication::translate("SampleLibrary", text);
}

Catalog sampleCatalog(const SampleLibrary& library, Catalog::Time now) {
  CatalogBuilder builder;
  int index = 0;
  for (const char* title : library.titles) {
    const std::string number = std::to_string(index);
    const std::string id = rawValue(library.kind).toStdString() + ":example-" + number;
    CatalogEntry entry;
    entry.id = id;
    entry.providerID = number;
    entry.kind = library.kind;
    const std::string name = translated(title).toStdString();
    entry.name = name;
    entry.category = index % 2 == 0 ? "1" : "2";
    entry.fileExtension = "mp4";
    entry.isExample = true;
    builder.add(entry);
    ++index;
  }
  builder.add(MediaCategory{u"1"_s, translated(QT_TRANSLATE_NOOP("SampleLibrary", "Featured"))});
  builder.add(MediaCategory{u"2"_s, translated(QT_TRANSLATE_NOOP("SampleLibrary", "Discover"))});
  return builder.build(now);
}

}  // namespace

void AppModel::explore() {
  const Announcements::Scope scope(announcements_);
  leaveWorld();
  session_.setDemo(true);
  std::map<LibraryKind, Catalog> catalogs;
  for (const SampleLibrary& library : samples)
    catalogs.emplace(library.kind, sampleCatalog(library, services_.clock.now()));
  libraries_.show(std::move(catalogs));
}

}  // namespace vantor
