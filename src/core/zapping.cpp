#include "core/zapping.h"

#include "core/app_model.h"
#include "playback/playback.h"

namespace vantor {
namespace {

using namespace std::chrono_literals;

constexpr auto stepRest = 250ms;
constexpr auto typingRest = 1500ms;
constexpr qsizetype mostDigits = 6;

}  // namespace

Zapping::Zapping(AppModel& model, Clock& clock) : model_(model), clock_(clock) {
  connect(&model.playback(), &Playback::sourceChanged, this, &Zapping::onSourceChanged);
  connect(&model, &AppModel::handedOver, this, &Zapping::onHandedOver);
}

bool Zapping::step(int channels) {
  if (!channel_) return false;
  typed_.clear();
  const auto all = static_cast<std::int64_t>(count());
  const std::int64_t moved = (static_cast<std::int64_t>(chosen_.place) + channels) % all;
  choose({chosen_.list, static_cast<std::size_t>(moved < 0 ? moved + all : moved)});
  rest_ = clock_.callAfter(stepRest, [this] { open(); });
  return true;
}

bool Zapping::type(int digit) {
  if (!channel_) return false;
  if (typed_.size() == mostDigits) typed_.clear();
  typed_ += QString::number(digit);
  rest_ = clock_.callAfter(typingRest, [this] { enter(); });
  Q_EMIT changed();
  return true;
}

std::size_t Zapping::count() const {
  return chosen_.list->count(LibraryKind::live);
}

std::optional<std::size_t> Zapping::typedPlace() const {
  const std::size_t number = typed_.toUInt();
  if (!channel_ || number < 1 || number > count()) return {};
  return number - 1;
}

std::optional<MediaItem> Zapping::typedChannel() const {
  const std::optional<std::size_t> place = typedPlace();
  return place ? std::optional(chosen_.list->item(*place)) : std::nullopt;
}

bool Zapping::enter() {
  if (!channel_ || typed_.isEmpty()) return false;
  const std::optional<std::size_t> place = typedPlace();
  if (place) {
    go({chosen_.list, *place});
  } else {
    typed_.clear();
    rest_.reset();
    Q_EMIT changed();
  }
  return true;
}

bool Zapping::takeBack() {
  if (!rest_) return false;
  rest_.reset();
  typed_.clear();
  choose(*playing_);
  return true;
}

bool Zapping::goBack() {
  if (!channel_ || !before_) return false;
  go(*before_);
  return true;
}

bool Zapping::open(std::shared_ptr<const ItemList> list, std::size_t index) {
  if (!channel_ || index >= list->count(LibraryKind::live)) return false;
  go({std::move(list), index});
  return true;
}

void Zapping::go(Station station) {
  typed_.clear();
  choose(std::move(station));
  open();
}

void Zapping::choose(Station station) {
  chosen_ = std::move(station);
  channel_ = chosen_.list->item(chosen_.place);
  Q_EMIT changed();
}

void Zapping::open() {
  rest_.reset();
  const PlaybackState state = model_.playback().state();
  const bool over = state == PlaybackState::ended || state == PlaybackState::failed;
  if (!channel_ || (model_.playback().itemID() == channel_->id && !over)) return;
  opening_ = true;
  model_.play(*channel_);
  opening_ = false;
  // A recording or a missing account keeps what plays.
  if (channel_ && model_.playback().itemID() != channel_->id && playing_) choose(*playing_);
}

std::shared_ptr<const ItemList> Zapping::list() const {
  return opening_ ? chosen_.list : model_.browsing().sharedItems();
}

void Zapping::onSourceChanged() {
  const std::optional<PlayRequest>& source = model_.playback().source();
  if (!source || source->kind != SourceKind::broadcast) return forget();
  if (playing_ && playing_->list->id(playing_->place) == source->id) return;
  std::shared_ptr<const ItemList> now = list();
  const std::optional<std::size_t> place = now->indexOf(source->id);
  if (!place) return forget();
  before_ = playing_;
  take({std::move(now), *place});
}

void Zapping::onHandedOver() {
  std::shared_ptr<const ItemList> now = list();
  if (!playing_ || (playing_->list == now && !rest_)) return;
  // What plays already was started again, from another list or instead of the next choice.
  const std::optional<std::size_t> place = now->indexOf(playing_->list->id(playing_->place));
  if (place) take({std::move(now), *place});
}

void Zapping::take(Station station) {
  playing_ = station;
  rest_.reset();
  typed_.clear();
  choose(std::move(station));
}

void Zapping::forget() {
  rest_.reset();
  typed_.clear();
  playing_.reset();
  before_.reset();
  chosen_ = {};
  if (std::exchange(channel_, std::nullopt)) Q_EMIT changed();
}

}  // namespace vantor
