#include "provider/api_actions.h"

namespace vantor {

QString action(LibraryKind kind) {
  return textOf(kind, {u"get_live_streams", u"get_vod_streams", u"get_series"});
}

QString categoryAction(LibraryKind kind) {
  return textOf(kind, {u"get_live_categories", u"get_vod_categories", u"get_series_categories"});
}

}  // namespace vantor
