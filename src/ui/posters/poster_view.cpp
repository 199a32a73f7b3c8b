#include "ui/posters/poster_view.h"

#include <algorithm>

#include "core/app_model.h"
#include "playback/playback.h"
#include "ui/entries/item_list_model.h"
#include "ui/entries/library_wording.h"
#include "ui/entries/shown_text.h"
#include "ui/shell/tv_shell.h"

namespace vantor {

using namespace Qt::StringLiterals;

PosterView::PosterView(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
  const Browsing& browsing = model.browsing();
  for (const auto signal :
       {&Browsing::itemsChanged, &Browsing::selectedChanged, &Browsing::sectionChanged})
    connect(&browsing, signal, this, &PosterView::updateHero);
  connect(&browsing, &Browsing::showingEpisodesChanged, this, &PosterView::changed);
  connect(&model.record(), &WatchRecord::favoritesChanged, this, &PosterView::changed);
  connect(&model.session(), &Session::startingUpChanged, this, &PosterView::changed);
  connect(&model.playback(), &Playback::sourceChanged, this, &PosterView::changed);
  connect(&browsing, &Browsing::itemsChanged, this, [this] { request(Scroll::ToAnchor); });
  connect(&browsing, &Browsing::selectedChanged, this, [this] { request(Scroll::ToSelection); });
  connect(&model, &AppModel::settled, this, &PosterView::carryOutScroll);
  updateHero();
}

void PosterView::updateHero() {
  if (model_.browsing().selected())
    hero_ = model_.browsing().selected();
  else if (!model_.browsing().items().empty())
    hero_ = model_.browsing().items().item(0);
  else
    hero_.reset();
  Q_EMIT changed();
}

QString PosterView::kicker() const {
  return (hero_ ? title(hero_->kind) : sectionTitle(model_.browsing().section())).toUpper();
}

QString PosterView::name() const {
  return hero_ ? oneLine(hero_->name) : sectionTitle(model_.browsing().section());
}

QString PosterView::facts() const {
  if (!hero_) return {};
  QStringList facts;
  if (const QString year = hero_->year.value_or(QString()); !year.isEmpty()) facts.append(year);
  if (const QString rating = hero_->rating.value_or(QString()); !rating.isEmpty())
    facts.append(u"★ "_s + rating);
  if (hero_->isExample) facts.append(tr("Preview entry"));
  return oneLine(facts.join(u"   "_s));
}

QString PosterView::description() const {
  if (hero_ && hero_->plot && !hero_->plot->isEmpty()) return paragraph(*hero_->plot);
  if (hero_ && hero_->isExample)
    return tr(
        "A sample title for exploring the Vantor interface. No playable content is included.");
  return tr("Choose a title to watch or save it to My list.");
}

QUrl PosterView::artwork() const {
  return hero_ ? hero_->artwork.value_or(QUrl()) : QUrl();
}

QString PosterView::symbol() const {
  return vantor::symbol(hero_ ? hero_->kind
                              : model_.browsing().kind().value_or(LibraryKind::movies));
}

QString PosterView::openLabel() const {
  return hero_ && hero_->kind == LibraryKind::shows ? tr("Episodes") : tr("Play");
}

QString PosterView::favoriteSymbol() const {
  return hero_ && model_.record().favorites().contains(hero_->id) ? u"bookmark.fill"_s
                                                                  : u"bookmark"_s;
}

bool PosterView::allShowsOffered() const {
  return hero_ && model_.browsing().showingEpisodes();
}

bool PosterView::showsPlayer() const {
  return model_.playback().source().has_value();
}

PosterView::Content PosterView::content() const {
  if (model_.browsing().showingEpisodes() && model_.browsing().selected()) return Content::Episodes;
  // Whether there is nothing to show is not known before the saved account was read.
  return model_.browsing().items().empty() && !model_.session().startingUp() ? Content::Empty
                                                                             : Content::Grid;
}

QString PosterView::limitNote() const {
  return model_.browsing().items().size() > static_cast<std::size_t>(ItemListModel::rowLimit)
             ? tr("Showing 2,500 titles. Choose a category or search to narrow the results.")
             : QString();
}

int PosterView::keyRow() const {
  return hero_ ? rowOf(hero_->id) : -1;
}

void PosterView::toggleFavorite() {
  if (hero_) model_.favorite(*hero_);
}

void PosterView::closeEpisodes() {
  model_.browsing().setShowingEpisodes(false);
}

void PosterView::choose(int row) {
  if (row < 0 || static_cast<std::size_t>(row) >= model_.browsing().items().size()) return;
  model_.browsing().setShowingEpisodes(false);
  model_.select(model_.browsing().items().item(static_cast<std::size_t>(row)));
}

void PosterView::settledOn(int row) {
  // A scroll that is still to be carried out decides where the grid stands.
  if (scroll_ != Scroll::None) return;
  if (row < 0 || static_cast<std::size_t>(row) >= model_.browsing().items().size()) return;
  model_.browsing().setBrowseAnchor(model_.browsing().section(),
                                    model_.browsing().items().id(static_cast<std::size_t>(row)));
}

void PosterView::restorePosition() {
  request(Scroll::ToAnchor);
  carryOutScroll();
}

void PosterView::request(Scroll scroll) {
  if (model_.browsing().kind() == LibraryKind::live) return;  // channels have no posters
  // Where a section was left goes before its selection, whose change is told of after the entries.
  scroll_ = std::max(scroll_, scroll);
}

void PosterView::carryOutScroll() {
  const Scroll scroll = std::exchange(scroll_, Scroll::None);
  if (scroll == Scroll::None) return;
  int row = -1;
  if (scroll == Scroll::ToAnchor)
    row = rowOf(model_.browsing().browseAnchor(model_.browsing().section()).value_or(QString()));
  if (row < 0 && model_.browsing().selected()) row = rowOf(model_.browsing().selected()->id);
  // A selection without a poster leaves the grid where it is.
  if (row >= 0 || scroll == Scroll::ToAnchor) Q_EMIT centerRequested(row);
  settledOn(row);
}

int PosterView::rowOf(const QString& id) const {
  if (id.isEmpty()) return -1;
  const auto index = model_.browsing().items().indexOf(id);
  return index && *index < static_cast<std::size_t>(ItemListModel::rowLimit)
             ? static_cast<int>(*index)
             : -1;
}

}  // namespace vantor
