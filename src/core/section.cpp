#include "core/section.h"

namespace vantor {

using namespace Qt::StringLiterals;

std::optional<Section> sectionNamed(QStringView name) {
  if (name == u"search"_s) return Section::search;
  if (name == u"live"_s) return Section::live;
  if (name == u"movies"_s) return Section::movies;
  if (name == u"shows"_s) return Section::shows;
  if (name == u"list"_s) return Section::favorites;
  return std::nullopt;
}

}  // namespace vantor
