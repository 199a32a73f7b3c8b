#include "machines/model_invariants.h"

#include <algorithm>

#include "playback/playback.h"

namespace vantor::machine {
namespace {

using namespace Qt::StringLiterals;

/// The ids of the list as they follow from what it is made of, found in the plainest way.
QStringList listOf(const AppModel& model) {
  const Browsing& browsing = model.browsing();
  const bool continues = browsing.category() == Browsing::continueWatching;
  QStringList found;
  for (const auto& [kind, catalog] : model.libraries().catalogs()) {
    if (browsing.kind().value_or(kind) != kind) continue;
    QStringList ofKind;
    for (std::size_t row = 0; row < catalog.size(); ++row) {
      const MediaItem item = catalog.item(row);
      const bool listed = continues ? model.record().begun().contains(item.id)
                          : browsing.section() == Section::favorites
                              ? model.record().favorites().contains(item.id)
                              : true;
      if (listed &&
          (continues || browsing.category().isEmpty() || item.category == browsing.category()) &&
          item.name.contains(browsing.search(), Qt::CaseInsensitive))
        ofKind.append(item.id);
    }
    if (continues)
      std::ranges::sort(ofKind, {},
                        [&](const QString& id) { return model.record().begun().indexOf(id); });
    found += ofKind;
  }
  return found;
}

QString faultInList(const AppModel& model) {
  const ItemList& items = model.browsing().items();
  const QStringList expected = listOf(model);
  if (items.size() != static_cast<std::size_t>(expected.size())) return u"the list's length"_s;
  for (std::size_t row = 0; row < items.size(); ++row)
    if (items.id(row) != expected.at(static_cast<qsizetype>(row))) return u"the list's order"_s;
  const std::optional<MediaItem>& selected = model.browsing().selected();
  if (selected && model.browsing().kind().value_or(selected->kind) != selected->kind)
    return u"an entry of another section is selected"_s;
  return {};
}

QString faultInDetails(const AppModel& model) {
  const ShowDetails& details = model.details();
  const MediaItem selected = model.browsing().selected().value_or(MediaItem());
  const bool isLive = !selected.id.isEmpty() && selected.kind == LibraryKind::live;
  const bool isShow = selected.kind == LibraryKind::shows;
  if ((details.detailsLoading() || details.detailsError()) && !isLive && !isShow)
    return u"details of what has none"_s;
  if (details.detailsLoading() && details.detailsError()) return u"details load and have failed"_s;
  for (const MediaItem& episode : details.episodes())
    if (episode.showID != selected.id) return u"episodes of another show"_s;
  for (const GuideEntry& programme : model.guide().guide())
    if (!isLive || !programme.id.startsWith(selected.id + u':'))
      return u"programmes of another channel"_s;
  return {};
}

QString faultInLoads(const AppModel& model) {
  const Libraries& libraries = model.libraries();
  for (const auto& [kind, progress] : libraries.progress())
    if (!libraries.loading().contains(kind)) return u"progress of what does not load"_s;
  for (const auto& [kind, error] : libraries.errors()) {
    if (libraries.loading().contains(kind)) return u"an error of what loads"_s;
    if (error.isEmpty()) return u"an error without a sentence"_s;
  }
  return {};
}

/// Nobody is signed in, so there is nothing of anybody's.
QString leftover(const AppModel& model) {
  if (!model.libraries().catalogs().empty()) return u"a library without an account"_s;
  if (!model.libraries().loading().empty()) return u"a load without an account"_s;
  if (!model.libraries().errors().empty()) return u"a load's error without an account"_s;
  if (!model.record().favorites().isEmpty()) return u"a list without an account"_s;
  if (!model.record().begun().isEmpty()) return u"begun entries without an account"_s;
  if (model.browsing().selected()) return u"a selection without an account"_s;
  if (model.session().restoringLibrary()) return u"a restoration without an account"_s;
  if (model.playback().source() && !model.playback().isLocal())
    return u"a source without an account"_s;
  return {};
}

}  // namespace

QString faultIn(const AppModel& model) {
  if (model.session().account() && model.session().demo()) return u"both signed in and sample"_s;
  QString fault = faultInList(model);
  if (fault.isEmpty()) fault = faultInDetails(model);
  if (fault.isEmpty()) fault = faultInLoads(model);
  if (fault.isEmpty() && !model.session().account() && !model.session().demo())
    fault = leftover(model);
  return fault;
}

}  // namespace vantor::machine
