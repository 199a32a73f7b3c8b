#include "ui/entries/library_wording.h"

namespace vantor {
namespace {

struct Wording {
  const char16_t* title;
  const char16_t* symbol;
};

constexpr std::array<Wording, 3> wordings = {{
    {u"TV", u"play.tv"},
    {u"Movies", u"film"},
    {u"Shows", u"rectangle.stack"},
}};

}  // namespace

QString title(LibraryKind kind) {
  return QString::fromUtf16(wordings.at(static_cast<std::size_t>(kind)).title);
}

QString symbol(LibraryKind kind) {
  return QString::fromUtf16(wordings.at(static_cast<std::size_t>(kind)).symbol);
}

}  // namespace vantor
