#include "machines/monkey/invariants.h"

#include <algorithm>

#include "core/zapping.h"
#include "machines/monkey/answers.h"
#include "machines/monkey/subject.h"
#include "playback/playback.h"

namespace vantor::monkey {
namespace {

using namespace Qt::StringLiterals;

/// Objects of the window that signing out and in may leave, such as those kept for another use.
constexpr int objectMargin = 150;

class Faults {
 public:
  void unless(bool holds, const QString& fault) {
    if (!holds) list.append(fault);
  }
  QStringList list;
};

QString nameOf(const QObject* object) {
  return object
             ? QString::fromLatin1(object->metaObject()->className()) + u' ' + object->objectName()
             : u"nothing"_s;
}

void checkRows(Subject& on, Faults& faults) {
  const Browsing& browsing = on.model->browsing();
  const ItemListModel& rows = *on.on().views.items();
  const ItemList& items = browsing.items();
  const auto size = std::min<std::size_t>(items.size(), ItemListModel::rowLimit);
  faults.unless(static_cast<std::size_t>(rows.rowCount()) == size,
                u"rows: %1 for %2 entries"_s.arg(rows.rowCount()).arg(size));
  for (const std::size_t row : {std::size_t{0}, size / 2, size - 1}) {
    if (row >= size || static_cast<int>(row) >= rows.rowCount()) continue;
    const QString id =
        rows.data(rows.index(static_cast<int>(row)), ItemListModel::ItemIDRole).toString();
    faults.unless(!id.isEmpty() && id == items.id(row), u"rows: row %1 is another"_s.arg(row));
  }
  const int current = rows.currentRow();
  const QString selected = browsing.selected() ? browsing.selected()->id : QString();
  faults.unless(current == rows.rowOf(selected),
                u"highlight: row %1 of %2"_s.arg(current).arg(rows.rowCount()));
  faults.unless(
      browsing.category() != Browsing::continueWatching || browsing.continueWatchingOffered(),
      u"category: one that is not offered"_s);
  faults.unless(!browsing.showingEpisodes() ||
                    (browsing.selected() && browsing.selected()->kind == LibraryKind::shows),
                u"episodes: of no show"_s);
}

/// Whether the item is a row of its view, and not one that is kept for another use.
bool isRow(QQuickItem* item, int row) {
  for (QQuickItem* delegate = item; delegate; delegate = delegate->parentItem()) {
    QQuickItem* content = delegate->parentItem();
    QQuickItem* view = content ? content->parentItem() : nullptr;
    if (!view || !view->inherits("QQuickItemView")) continue;
    QQuickItem* found = nullptr;
    QMetaObject::invokeMethod(view, "itemAtIndex", Q_RETURN_ARG(QQuickItem*, found),
                              Q_ARG(int, row));
    return found == delegate;
  }
  return false;
}

/// The rows on the screen are rows of the model.
void checkShownRows(Subject& on, Faults& faults) {
  // Whose rows are of another list.
  if (on.on().views.remote()->chooser()) return;
  const ItemListModel& rows = *on.on().views.items();
  for (QQuickItem* item : on.shownItems()) {
    const QByteArray type(item->metaObject()->className());
    const int row = item->property("index").toInt();
    if (!(type.startsWith("GuideRow") || type.startsWith("PosterCard")) || !isRow(item, row))
      continue;
    const QString name = rows.data(rows.index(row), ItemListModel::NameRole).toString();
    faults.unless(row < rows.rowCount() && item->property("name").toString() == name,
                  u"shown rows: row %1 of %2 is another"_s.arg(row).arg(rows.rowCount()));
  }
}

void checkPlayback(Subject& on, Faults& faults) {
  const Playback& playback = on.model->playback();
  const PlayerRemote& remote = *on.on().views.remote();
  const bool hasSource = playback.source().has_value();
  faults.unless(hasSource == (playback.state() != PlaybackState::idle),
                u"playback: state without source"_s);
  faults.unless(hasSource || !(playback.fullScreen() || playback.expanded() || remote.small()),
                u"playback: a picture of nothing"_s);
  faults.unless(!(remote.small() && remote.fullScreen()), u"playback: small and full screen"_s);
  faults.unless(!remote.chooser() || remote.zapping(), u"playback: chooser without channel"_s);
  faults.unless(playback.state() != PlaybackState::failed || playback.message().has_value() ||
                    on.on().keeper.bringingBack(),
                u"playback: failed without a sentence"_s);
  const EngineStatus& now = on.engine.now;
  const bool streams =
      now.releasing || (now.hasMedia && now.state != EngineState::ended &&
                        now.state != EngineState::error && !on.engine.source.address.isLocalFile());
  const auto open = on.openRequests();
  const auto asked = std::ranges::count_if(open, [](const auto& one) { return isForStream(*one); });
  faults.unless(asked + (streams ? 1 : 0) <= 1, u"connections: more than one"_s);
}

void checkSession(Subject& on, Faults& faults) {
  const Session& session = on.model->session();
  const AppModel& model = *on.model;
  faults.unless(!(session.account() && session.demo()), u"session: account and demo"_s);
  const bool somebody = session.account() || session.demo();
  faults.unless(somebody || model.libraries().catalogs().empty(),
                u"session: a library of nobody"_s);
  faults.unless(somebody || model.libraries().loading().empty(), u"session: loading for nobody"_s);
  // A sign-in asks without an action, pictures and the configuration have a file's name.
  const auto open = on.openRequests();
  const bool asked =
      std::ranges::any_of(open, [](const auto& one) { return one->action.startsWith("get_"_L1); });
  faults.unless(somebody || !asked, u"session: a request of nobody"_s);
  faults.unless(somebody || !model.browsing().selected(), u"session: an entry of nobody"_s);
  faults.unless(somebody || !model.playback().source() || model.playback().isLocal(),
                u"session: a stream of nobody"_s);
}

/// Whether something that is open in front of the window has a window of its own: the toolkit's
/// file dialog since Qt 6.8.
bool isBehindAnother(const QQuickWindow& window) {
  const QList<QObject*> parts = window.findChildren<QObject*>();
  return std::ranges::any_of(parts, [&](const QObject* popup) {
    if (!popup->inherits("QQuickPopup") || !popup->property("opened").toBool()) return false;
    const auto* content = popup->property("contentItem").value<QQuickItem*>();
    return content && content->window() && content->window() != &window;
  });
}

/// Keys have somewhere to go. Tells which menus are open.
void checkFocus(Subject& on, QHash<const QObject*, int>& menus, Faults& faults) {
  const QQuickWindow& window = on.window();
  if (!window.isActive() || !on.awake() || on.on().views.remote()->small()) return;
  if (isBehindAnother(window)) return;
  const QQuickItem* focus = window.activeFocusItem();
  const QString name = nameOf(focus);
  faults.unless(focus && focus != window.contentItem(), u"focus: on "_s + name);
  if (!focus) return;
  faults.unless(focus->isVisible() && focus->isEnabled(), u"focus: on a hidden "_s + name);
  faults.unless(focus->objectName() != "shell"_L1 && !focus->inherits("QQuickLoader"),
                u"focus: on "_s + name);
  for (const QObject* popup : window.findChildren<QObject*>()) {
    if (!popup->inherits("QQuickPopup") || !popup->property("opened").toBool() ||
        !popup->property("focus").toBool())
      continue;
    if (popup->property("row").isValid()) menus.insert(popup, popup->property("row").toInt());
    const auto* content = popup->property("contentItem").value<QQuickItem*>();
    const QQuickItem* around = content ? content->parentItem() : nullptr;
    const QQuickItem* overlay = around ? around->parentItem() : nullptr;
    const bool holds = around && (around == focus || around->isAncestorOf(focus));
    // Or one above it does.
    faults.unless(holds || (overlay && overlay != focus && overlay->isAncestorOf(focus)),
                  u"popup: %1 without keys, which %2 has"_s.arg(nameOf(popup), name));
  }
}

/// A menu is of the entry that it was opened for, until it is opened for another row.
void checkMenus(Subject& on, const QHash<const QObject*, int>& menus, Faults& faults) {
  QHash<const QObject*, MenuEntry> entries;
  const ItemListModel& rows = *on.on().views.items();
  for (const auto& [menu, row] : menus.asKeyValueRange()) {
    const MenuEntry entry{row, row < rows.rowCount() ? rows.entry(row).id : QString()};
    entries.insert(menu, entry);
    const MenuEntry before = on.menuEntries.value(menu, entry);
    faults.unless(before.row != row || before.id == entry.id, u"menu: of another entry"_s);
  }
  on.menuEntries = entries;
}

void signOutToEnd(Subject& on) {
  on.credentials.work(test::FakeCredentialStore::Operation::remove);
  on.model->playback().stop();
  for (; on.recordings > 0; --on.recordings) on.engine.onRecordingStopped({});
  on.engine.now = {};
  for (int round = 0; round < 5; ++round) {
    on.disconnectAccount();
    on.settleAll();
    for (const auto& request : on.openRequests()) endWell(*request, 0);
    on.clock.advance(std::chrono::seconds(61));
    for (int i = 0; i < 10; ++i) on.animations.pass(100);
    on.settleAll();
  }
}

/// Signs in and out; how many objects there are then.
int objectsAfterAnAccount(Subject& on) {
  on.connectAccount(on.account);
  for (int round = 0; round < 5; ++round) {
    on.settleAll();
    for (const auto& request : on.openRequests()) endWell(*request, 40);
  }
  for (std::size_t section = 0; section < allSections.size(); ++section) {
    on.on().views.shell()->navigate(static_cast<int>(section));
    on.settleAll();
  }
  on.on().views.shell()->navigate(static_cast<int>(Section::live));
  signOutToEnd(on);
  return on.objects();
}

}  // namespace

QStringList broken(Subject& on) {
  Faults faults;
  for (const QString& warning : on.heard.take()) faults.list.append(u"warning: "_s + warning);
  checkRows(on, faults);
  checkPlayback(on, faults);
  checkSession(on, faults);
  QHash<const QObject*, int> menus;  // with their rows
  checkFocus(on, menus, faults);
  checkMenus(on, menus, faults);
  if (on.awake()) checkShownRows(on, faults);
  return faults.list;
}

QStringList left(Subject& on) {
  Faults faults;
  signOutToEnd(on);
  faults.unless(!on.model->session().account() && !on.model->session().signingInOrOut(),
                u"end: still signed in"_s);
  const int once = objectsAfterAnAccount(on);
  const int twice = objectsAfterAnAccount(on);
  faults.unless(twice - once <= objectMargin,
                u"end: %1 objects more after an account"_s.arg(twice - once));
  faults.unless(on.openRequests().empty(), u"end: a request of nobody"_s);
  faults.list += broken(on);
  on.stop();
  test::settle();
  faults.unless(on.openRequests().empty(), u"end: a request of no program"_s);
  faults.unless(on.clock.waiting() == 0, u"end: %1 calls still to come"_s.arg(on.clock.waiting()));
  const auto& exchanges = on.transport.exchanges();
  faults.unless(
      std::ranges::all_of(exchanges, [](const auto& one) { return one.use_count() == 1; }),
      u"end: a job is left"_s);
  return faults.list;
}

}  // namespace vantor::monkey
