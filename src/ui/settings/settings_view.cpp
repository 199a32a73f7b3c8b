#include "ui/settings/settings_view.h"

#include <QDir>
#include <algorithm>

#include "core/app_model.h"
#include "platform/opener.h"
#include "ui/entries/assistive.h"

namespace vantor {

using namespace Qt::StringLiterals;
using Action = SettingsBlock::Action;

namespace {

QString nameOf(SettingsBlock::Kind kind) {
  switch (kind) {
    case SettingsBlock::Kind::text:
      return u"text"_s;
    case SettingsBlock::Kind::secondary:
      return u"secondary"_s;
    case SettingsBlock::Kind::row:
      return u"row"_s;
    case SettingsBlock::Kind::link:
      return u"link"_s;
  }
  return {};
}

}  // namespace

SettingsView::SettingsView(AppModel& model, Opener& opener, SettingsLinks links, QObject* parent)
    : QObject(parent), model_(model), opener_(opener), links_(std::move(links)) {
  connect(&model.session(), &Session::accountChanged, this, &SettingsView::blocksChanged);
  connect(&model.session(), &Session::subscriptionChanged, this, &SettingsView::blocksChanged);
  connect(&model, &AppModel::showingSettingsChanged, this, &SettingsView::shownOrHidden);
  shownOrHidden();
}

void SettingsView::shownOrHidden() {
  setPage(SettingsPage::main);
  setMessage({});
  setConfirmingRemoval(false);
  if (shown_ == model_.showingSettings()) return;
  shown_ = model_.showingSettings();
  Q_EMIT shownChanged();
}

QString SettingsView::backLabel() const {
  return page_ == SettingsPage::main ? tr("Done") : tr("Back");
}

QString SettingsView::hint() const {
  return tr("↑ ↓ Move   ·   Return Select   ·   Esc Back");
}

QString SettingsView::heading() const {
  return tr("VANTOR TV  /  SETTINGS");
}

QVariantList SettingsView::blocks() const {
  const auto acts = [](const SettingsBlock& block) { return block.action != Action::none; };
  const QList<SettingsBlock> blocks = blocksOf(page_, model_);
  const auto count = static_cast<int>(std::count_if(blocks.begin(), blocks.end(), acts));
  int index = 0;
  QVariantList list;
  for (const SettingsBlock& block : blocks)
    list.append(
        QVariantMap{{u"kind"_s, nameOf(block.kind)},
                    {u"text"_s, block.text},
                    {u"subtitle"_s, block.subtitle},
                    {u"place"_s, acts(block) ? Assistive::place(index++, count) : QString()}});
  return list;
}

void SettingsView::setPage(SettingsPage page) {
  if (page_ == page) return;
  page_ = page;
  setMessage({});
  // What follows the page finds its blocks there.
  Q_EMIT blocksChanged();
  Q_EMIT pageChanged();
}

void SettingsView::setMessage(const QString& message) {
  if (message_ == message) return;
  message_ = message;
  Q_EMIT messageChanged();
}

void SettingsView::setConfirmingRemoval(bool confirming) {
  if (confirmingRemoval_ == confirming) return;
  confirmingRemoval_ = confirming;
  Q_EMIT confirmingRemovalChanged();
}

void SettingsView::activate(int index) {
  const QList<SettingsBlock> blocks = blocksOf(page_, model_);
  if (index >= 0 && index < blocks.size()) run(blocks[index].action);
}

void SettingsView::run(Action action) {
  switch (action) {
    case Action::none:
      return;
    case Action::showPlaylists:
      return setPage(SettingsPage::playlists);
    case Action::showPlayback:
      return setPage(SettingsPage::playback);
    case Action::showGuide:
      return setPage(SettingsPage::guide);
    case Action::showAbout:
      return setPage(SettingsPage::about);
    case Action::changeProvider:
      model_.setShowingSettings(false);
      return model_.setShowingConnect(true);
    case Action::refreshPlaylists:
      return refreshPlaylists();
    case Action::removeProvider:
      return setConfirmingRemoval(true);
    case Action::refreshGuide:
      model_.refreshGuide();
      return setMessage(tr("Guide information will reload when you select a channel."));
    case Action::openFile:
      return model_.openFile();
    case Action::openLicenses:
      return openLicenses();
    case Action::openSupport:
      return opener_.open(links_.supportSite);
  }
}

void SettingsView::back() {
  if (page_ == SettingsPage::main)
    model_.setShowingSettings(false);
  else
    setPage(SettingsPage::main);
}

void SettingsView::refreshPlaylists() {
  for (const LibraryKind kind : allLibraryKinds) model_.load(kind, LoadMode::refresh);
  setMessage(tr("Refresh requested. Your saved library remains available."));
}

void SettingsView::openLicenses() {
  if (links_.resourceFolder.isEmpty()) return;
  opener_.open(QUrl::fromLocalFile(QDir(links_.resourceFolder).filePath(u"Licenses"_s)));
}

void SettingsView::cancelRemoval() {
  setConfirmingRemoval(false);
}

void SettingsView::removeProvider() {
  setConfirmingRemoval(false);
  if (removalTask_.running()) return;
  removalTask_ = Job::start([model = QPointer(&model_)](std::stop_token stop) {
    return disconnectProvider(model, stop);
  });
}

QCoro::Task<> SettingsView::disconnectProvider(QPointer<AppModel> model, std::stop_token stop) {
  if (!model) co_return;
  const QCoro::Task<> leaving = model->disconnectAccount(stop);
  co_await leaving;
}

}  // namespace vantor
