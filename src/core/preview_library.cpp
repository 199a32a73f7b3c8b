// The built-in sample library, for exploring the interface without a provider.
#include "core/app_model.h"
#include "library/catalog_builder.h"

namespace vantor {
namespace {

struct SampleLibrary {
  LibraryKind kind;
  std::array<const char*, 6> titles;
};

constexpr std::array<SampleLibrary, 3> samples = {{
    {LibraryKind::live,
     {"World window", "The outdoors", "Studio sessions", "At the table", "City stories",
      "The quiet hour"}},
    {LibraryKind::movies,
     {"Across the valley", "The long way home", "After the rain", "A place to begin",
      "The night garden", "Open horizons"}},
    {LibraryKind::shows,
     {"Wild places", "Made by hand", "The art of living", "Outside the frame", "Along the coast",
      "Extraordinary everyday"}},
}};

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
    entry.name = title;
    entry.category = index % 2 == 0 ? "1" : "2";
    entry.fileExtension = "mp4";
    entry.isExample = true;
    builder.add(entry);
    ++index;
  }
  builder.add(MediaCategory{QStringLiteral("1"), QStringLiteral("Featured")});
  builder.add(MediaCategory{QStringLiteral("2"), QStringLiteral("Discover")});
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
