#include "provider/api_actions.h"

namespace vantor {
namespace {

struct Actions {
  const char16_t* entries;
  const char16_t* categories;
};

constexpr std::array<Actions, 3> actions = {{
    {u"get_live_streams", u"get_live_categories"},
    {u"get_vod_streams", u"get_vod_categories"},
    {u"get_series", u"get_series_categories"},
}};

}  // namespace

QString action(LibraryKind kind) {
  return QString::fromUtf16(actions.at(static_cast<std::size_t>(kind)).entries);
}

QString categoryAction(LibraryKind kind) {
  return QString::fromUtf16(actions.at(static_cast<std::size_t>(kind)).categories);
}

}  // namespace vantor
