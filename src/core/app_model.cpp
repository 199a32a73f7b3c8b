#include "core/app_model.h"

#include <algorithm>

#include "playback/playback.h"

namespace vantor {

AppModel::AppModel(AppServices services, std::unique_ptr<Playback> playback)
    : services_(std::move(services)),
      playback_(std::move(playback)),
      announcements_([this] { Q_EMIT settled(); }),
      session_(services_, announcements_),
      libraries_(services_, announcements_, session_,
                 {.changed = [this] { browsing_.itemsDiffer(); },
                  .arrived =
                      [this](LibraryKind kind) {
                        if (browsing_.kind() == kind && !browsing_.selected()) selectRemembered();
                      },
                  .notice = [this](const QString& text) { notice_.set(text); }}),
      record_(services_.preferences, announcements_, session_,
              {.favoritesDiffer = [this] { browsing_.favoritesDiffer(); },
               .begunDiffer = [this] { browsing_.begunDiffer(); }}),
      browsing_(announcements_, libraries_, record_),
      guide_(services_, announcements_, session_, [this] { details_.clearError(); }),
      details_(services_, announcements_, session_, guide_),
      notice_(announcements_, *this, &AppModel::noticeChanged),
      showingConnect_(announcements_, *this, &AppModel::showingConnectChanged),
      showingSettings_(announcements_, *this, &AppModel::showingSettingsChanged),
      handOver_(announcements_, *this, &AppModel::handedOver) {
  playback_->onProgress = [this](const QString& id, double seconds, double duration) {
    if (!playback_->isLocal()) record_.storeProgress(id, seconds, duration);
  };
  if (services_.launch.demo) explore();
  if (services_.launch.isolated) return;
  habits_.emplace(services_.preferences, session_, *playback_);
  soundSetup_.emplace(services_.preferences, *playback_);
  trackMemory_.emplace(services_.preferences, session_, *playback_, [this] {
    const std::optional<MediaItem> item = playing();
    return item ? item->showID : QString();
  });
  beginStartUp();
}

AppModel::~AppModel() {
  startUpReading_.request_stop();
}

void AppModel::leaveWorld() {
  const Announcements::Scope scope(announcements_);
  session_.enterNewWorld();
  libraries_.forget();
  guide_.forget();
  details_.forget();
  browsing_.reset();
  record_.forget();
  session_.setAccount(std::nullopt);
  session_.setDemo(false);
}

void AppModel::navigate(Section section) {
  if (section == browsing_.section()) return;
  const Announcements::Scope scope(announcements_);
  browsing_.enter(section);
  details_.clear();
  for (const LibraryKind kind : allLibraryKinds)
    if (kind == browsing_.kind().value_or(kind)) load(kind, LoadMode::copyFirst);
  selectRemembered();
}

void AppModel::selectRemembered() {
  std::optional<QString> id = browsing_.rememberedID();
  if (!id && browsing_.section() == Section::live && habits_) id = habits_->lastChannel();
  const std::optional<std::size_t> place = id ? browsing_.items().indexOf(*id) : std::nullopt;
  if (place) select(browsing_.items().item(*place));
}

void AppModel::takeUpRecord() {
  const std::optional<QString> last = record_.begin();
  if (!last) return;
  // Also in an isolated run, which makes this the account that the next start goes on with.
  const QString account = session_.account()->idText();
  ViewingHabits::takeOver(services_.preferences, *last, account);
  TrackMemory::takeOver(services_.preferences, *last, account);
}

void AppModel::setCategory(const QString& id) {
  const Announcements::Scope scope(announcements_);
  browsing_.choose(id);
  if (!browsing_.items().empty()) select(browsing_.items().item(0));
}

void AppModel::select(MediaItem item) {
  const Announcements::Scope scope(announcements_);
  browsing_.setSelected(item);
  details_.start(item);
}

void AppModel::favorite(MediaItem item) {
  record_.toggle(item.id);
}

void AppModel::stopContinuing(const QString& entryID) {
  const Announcements::Scope scope(announcements_);
  const bool isSelected = browsing_.selected() && browsing_.selected()->id == entryID;
  const std::optional<std::size_t> place = browsing_.items().indexOf(entryID);
  record_.removeBegun(entryID);
  const ItemList& left = browsing_.items();
  if (!isSelected || !place || left.empty() || left.indexOf(entryID)) return;
  select(left.item(std::min(*place, left.size() - 1)));
}

void AppModel::refreshGuide() {
  const Announcements::Scope scope(announcements_);
  guide_.forget();
  const std::optional<MediaItem> selected = browsing_.selected();
  if (selected && selected->kind == LibraryKind::live) select(*selected);
}

}  // namespace vantor
