#include "ui/shell/tv_shell.h"

#include "core/app_model.h"
#include "playback/playback.h"
#include "ui/entries/library_wording.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

QString symbolOf(Section section) {
  switch (section) {
    case Section::search:
      return u"magnifyingglass"_s;
    case Section::favorites:
      return u"bookmark"_s;
    case Section::live:
      return u"tv"_s;
    case Section::movies:
      return symbol(LibraryKind::movies);
    case Section::shows:
      return symbol(LibraryKind::shows);
  }
  return {};
}

}  // namespace

QString sectionTitle(Section section) {
  if (const auto kind = libraryOf(section)) return title(*kind);
  return section == Section::search ? TVShell::tr("Search") : TVShell::tr("My list");
}

QString allOf(Section section) {
  switch (section) {
    case Section::search:
      return TVShell::tr("All search");
    case Section::favorites:
      return TVShell::tr("All my list");
    case Section::live:
      return TVShell::tr("All tv");
    case Section::movies:
      return TVShell::tr("All movies");
    case Section::shows:
      return TVShell::tr("All shows");
  }
  return {};
}

TVShell::TVShell(AppModel& model, QObject* parent)
    : QObject(parent), model_(model), playback_(model.playback()) {
  connect(&model.browsing(), &Browsing::sectionChanged, this, [this] {
    Q_EMIT sectionChanged();
    Q_EMIT refreshEnabledChanged();
    if (model_.browsing().section() == Section::search) Q_EMIT searchFocusRequested();
  });
  connect(&model.session(), &Session::accountChanged, this, &TVShell::accountChanged);
  connect(&model.session(), &Session::demoChanged, this, &TVShell::accountChanged);
  connect(&model.session(), &Session::accountChanged, this, &TVShell::refreshEnabledChanged);
  connect(&model.session(), &Session::demoChanged, this, &TVShell::refreshEnabledChanged);
  connect(&model.libraries(), &Libraries::loadingChanged, this, &TVShell::refreshEnabledChanged);
  connect(&model.browsing(), &Browsing::searchChanged, this, &TVShell::searchChanged);
  connect(&model, &AppModel::noticeChanged, this, &TVShell::noticeChanged);
  connect(&playback_, &Playback::expandedChanged, this, &TVShell::expandedChanged);
}

QVariantList TVShell::sections() const {
  QVariantList list;
  for (const Section section : allSections)
    list.append(QVariantMap{{u"title"_s, sectionTitle(section)}, {u"symbol"_s, symbolOf(section)}});
  return list;
}

int TVShell::section() const {
  return static_cast<int>(model_.browsing().section());
}

bool TVShell::showsChannels() const {
  return model_.browsing().kind() == LibraryKind::live;
}

QString TVShell::title() const {
  return sectionTitle(model_.browsing().section());
}

QString TVShell::headerTitle() const {
  return showsChannels() ? tr("Live TV") : title();
}

bool TVShell::searchOffered() const {
  return model_.session().account() || model_.session().demo();
}

QString TVShell::searchPlaceholder() const {
  switch (model_.browsing().section()) {
    case Section::search:
      return tr("Search Search");
    case Section::favorites:
      return tr("Search My list");
    case Section::live:
      return tr("Search TV");
    case Section::movies:
      return tr("Search Movies");
    case Section::shows:
      return tr("Search Shows");
  }
  return {};
}

QString TVShell::search() const {
  return model_.browsing().search();
}

void TVShell::setSearch(const QString& text) {
  model_.browsing().setSearch(text);
}

bool TVShell::refreshOffered() const {
  return model_.browsing().kind().has_value();
}

bool TVShell::refreshEnabled() const {
  const auto kind = model_.browsing().kind();
  return kind && model_.session().account() && !model_.session().demo() &&
         !model_.libraries().loading().contains(*kind);
}

QString TVShell::notice() const {
  return model_.notice().value_or(QString());
}

bool TVShell::expanded() const {
  return playback_.expanded();
}

QString TVShell::accountLabel() const {
  if (model_.session().demo()) return tr("Preview library · No content included");
  return model_.session().account() ? model_.session().account()->name
                                    : tr("Connect your own provider");
}

QString TVShell::browseHint() const {
  return tr("↑ ↓ ← → Browse   ·   Return Select   ·   Esc Back");
}

QString TVShell::versionLabel() const {
  return tr("Vantor for Mac %1").arg(QStringLiteral(VANTOR_VERSION));
}

void TVShell::navigate(int section) {
  model_.navigate(allSections.at(static_cast<std::size_t>(section)));
}

void TVShell::refresh() {
  if (const auto kind = model_.browsing().kind()) model_.load(*kind, LoadMode::refresh);
}

void TVShell::openFile() {
  model_.openFile();
}

void TVShell::clearNotice() {
  model_.clearNotice();
}

void TVShell::openSettings() {
  model_.setShowingSettings(true);
}

void TVShell::connectProvider() {
  model_.setShowingConnect(true);
}

void TVShell::backToBrowsing() {
  playback_.setExpanded(false);
}

void TVShell::startOver() {
  playback_.restart();
}

void TVShell::escape() {
  if (playback_.fullScreen())
    playback_.setFullScreen(false);
  else if (playback_.expanded())
    playback_.setExpanded(false);
  else if (model_.browsing().showingEpisodes())
    model_.browsing().setShowingEpisodes(false);
  else
    model_.navigate(Section::live);
}

}  // namespace vantor
