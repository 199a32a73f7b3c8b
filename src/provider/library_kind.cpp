#include "provider/library_kind.h"

namespace vantor {
namespace {

struct Texts {
  const char16_t* rawValue;
  const char16_t* title;
  const char16_t* symbol;
  const char16_t* action;
  const char16_t* categoryAction;
};

constexpr std::array<Texts, 3> texts = {{
    {u"live", u"TV", u"play.tv", u"get_live_streams", u"get_live_categories"},
    {u"movies", u"Movies", u"film", u"get_vod_streams", u"get_vod_categories"},
    {u"shows", u"Shows", u"rectangle.stack", u"get_series", u"get_series_categories"},
}};

const Texts& of(LibraryKind kind) {
  return texts.at(static_cast<std::size_t>(kind));
}

}  // namespace

QString rawValue(LibraryKind kind) {
  return QString::fromUtf16(of(kind).rawValue);
}
QString title(LibraryKind kind) {
  return QString::fromUtf16(of(kind).title);
}
QString symbol(LibraryKind kind) {
  return QString::fromUtf16(of(kind).symbol);
}
QString action(LibraryKind kind) {
  return QString::fromUtf16(of(kind).action);
}
QString categoryAction(LibraryKind kind) {
  return QString::fromUtf16(of(kind).categoryAction);
}

std::optional<LibraryKind> libraryKind(QStringView raw) {
  for (const LibraryKind kind : allLibraryKinds)
    if (raw == QStringView(of(kind).rawValue)) return kind;
  return std::nullopt;
}

}  // namespace vantor
