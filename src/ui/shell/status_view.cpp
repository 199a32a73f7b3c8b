#include "ui/shell/status_view.h"

#include <algorithm>

#include "core/browsing.h"
#include "ui/entries/library_wording.h"
#include "ui/entries/shown_text.h"
#include "ui/shell/tv_shell.h"

namespace vantor {

StatusView::StatusView(const Session& session, const Browsing& browsing, const Libraries& libraries,
                       QObject* parent)
    : QObject(parent), session_(session), browsing_(browsing), libraries_(libraries) {
  connect(&session, &Session::restoringLibraryChanged, this, &StatusView::changed);
  for (const auto signal :
       {&Browsing::sectionChanged, &Browsing::categoryChanged, &Browsing::itemsChanged})
    connect(&browsing, signal, this, &StatusView::changed);
  for (const auto signal :
       {&Libraries::loadingChanged, &Libraries::progressChanged, &Libraries::errorsChanged})
    connect(&libraries, signal, this, &StatusView::changed);
}

QString StatusView::label() const {
  if (browsing_.category().isEmpty()) return allOf(browsing_.section());
  if (browsing_.category() == Browsing::continueWatching) return continueWatchingTitle();
  const Catalog catalog = browsing_.catalog();
  const auto& categories = catalog.categories();
  const auto found = std::find_if(categories.begin(), categories.end(), [&](const auto& category) {
    return category.id == browsing_.category();
  });
  return found == categories.end() ? sectionTitle(browsing_.section()) : oneLine(found->name);
}

bool StatusView::loading() const {
  const auto kind = browsing_.kind();
  if (kind == LibraryKind::live && session_.restoringLibrary()) return true;
  return kind && libraries_.loading().contains(*kind);
}

QString StatusView::progress() const {
  const auto kind = browsing_.kind();
  const auto found = kind ? libraries_.progress().find(*kind) : libraries_.progress().end();
  if (found == libraries_.progress().end()) return {};
  const LoadProgress& progress = found->second;
  return tr("%1 loaded · %2 of %3 categories")
      .arg(progress.entries)
      .arg(progress.answers)
      .arg(progress.categories);
}

QString StatusView::count() const {
  const auto size = static_cast<int>(browsing_.items().size());
  return size == 1 ? tr("%n item", nullptr, size) : tr("%n items", nullptr, size);
}

QString StatusView::error() const {
  const auto kind = browsing_.kind();
  if (!kind) return {};
  const auto found = libraries_.errors().find(*kind);
  return found == libraries_.errors().end() ? QString() : found->second;
}

}  // namespace vantor
