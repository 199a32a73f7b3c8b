#include "ui/player/player_remote.h"

#include <algorithm>
#include <array>

#include "core/app_model.h"
#include "core/zapping.h"
#include "playback/playback.h"
#include "ui/player/channel_banner.h"
#include "ui/player/next_episode.h"
#include "ui/player/statistics.h"
#include "ui/player/transport_controls.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto controlsTime = 3s;
constexpr auto noteTime = 1500ms;
// After the last of several skips, which lead to one jump.
constexpr auto skipRest = 300ms;
constexpr double volumeStep = 5;  // per cent
constexpr double shortSkip = 10;  // seconds
constexpr double longSkip = 60;   // seconds
// In the order of `PictureShape`.
constexpr std::array shapeNames{QT_TRANSLATE_NOOP("vantor::PlayerRemote", "Whole picture"),
                                QT_TRANSLATE_NOOP("vantor::PlayerRemote", "Fill the screen"),
                                QT_TRANSLATE_NOOP("vantor::PlayerRemote", "Stretch"), "4:3",
                                "16:9"};

bool isDigit(int key) {
  return key >= Qt::Key_0 && key <= Qt::Key_9;
}

}  // namespace

PlayerRemote::PlayerRemote(AppModel& model, const Parts& parts, Clock& clock, QObject* parent)
    : QObject(parent),
      model_(model),
      playback_(model.playback()),
      zapping_(parts.zapping),
      banner_(parts.banner),
      nextEpisode_(parts.nextEpisode),
      transport_(parts.transport),
      statistics_(parts.statistics),
      clock_(clock) {
  for (const auto signal :
       {&Playback::sourceChanged, &Playback::expandedChanged, &Playback::fullScreenChanged})
    connect(&playback_, signal, this, &PlayerRemote::watchingChanged);
  connect(&playback_, &Playback::fullScreenChanged, this, [this] {
    if (fullScreen()) {
      setSmall(false);
      moved();
    }
    Q_EMIT fullScreenChanged();
    Q_EMIT pictureOnlyChanged();
  });
  connect(&playback_, &Playback::sourceChanged, this, [this] {
    skipping_.reset();
    transport_.abandonSeek();
    if (!playback_.source()) setSmall(false);
  });
  connect(&playback_, &Playback::stateChanged, this, &PlayerRemote::updateControls);
  connect(&zapping_, &Zapping::changed, this, &PlayerRemote::watchingChanged);
  connect(this, &PlayerRemote::watchingChanged, this, [this] {
    if (!zapping()) putChooserAway();
  });
  const auto forgetUnwatched = [this] {
    // What comes later would come as a surprise.
    if (!watching()) zapping_.takeBack();
  };
  connect(this, &PlayerRemote::pictureOnlyChanged, this, forgetUnwatched);
  connect(&playback_, &Playback::expandedChanged, this, forgetUnwatched);
  connect(&playback_, &Playback::pictureShapeChanged, this, &PlayerRemote::pictureShapeChanged);
  connect(&model.browsing(), &Browsing::sectionChanged, this, &PlayerRemote::leavePicture);
  connect(&model, &AppModel::showingConnectChanged, this, &PlayerRemote::leavePicture);
  connect(&model, &AppModel::showingSettingsChanged, this, &PlayerRemote::leavePicture);
}

bool PlayerRemote::fullScreen() const {
  return playback_.fullScreen();
}

void PlayerRemote::setFullScreen(bool fullScreen) {
  playback_.setFullScreen(fullScreen);
}

QString PlayerRemote::fullScreenSymbol() const {
  return fullScreen() ? u"fullscreen.exit"_s : u"fullscreen"_s;
}

void PlayerRemote::setSmall(bool small) {
  small = small && playback_.source();
  if (small_ == small) return;
  small_ = small;
  // After the other, since somebody watches all the time.
  if (small) setFullScreen(false);
  moved();
  Q_EMIT smallChanged();
  Q_EMIT pictureOnlyChanged();
  Q_EMIT watchingChanged();
}

void PlayerRemote::leavePicture() {
  setFullScreen(false);
  setSmall(false);
}

bool PlayerRemote::watching() const {
  return playback_.source() && (pictureOnly() || playback_.expanded());
}

bool PlayerRemote::zapping() const {
  return watching() && zapping_.channel();
}

bool PlayerRemote::controlsShown() const {
  return controlsShown_;
}

void PlayerRemote::moved() {
  pointed_ = true;
  hiding_ = clock_.callAfter(controlsTime, [this] {
    pointed_ = false;
    updateControls();
  });
  updateControls();
}

void PlayerRemote::setBusy(bool busy) {
  if (busy_ == busy) return;
  busy_ = busy;
  Q_EMIT busyChanged();
  // What was used is not gone at once.
  moved();
}

void PlayerRemote::updateControls() {
  const bool shown = pointed_ || busy_ || playback_.paused();
  if (std::exchange(controlsShown_, shown) != shown) Q_EMIT controlsShownChanged();
}

bool PlayerRemote::chooseChannel() {
  if (!zapping() || small_ || chooser_) return false;
  chooser_ = std::make_unique<ChannelChooser>(model_, zapping_, clock_);
  connect(chooser_.get(), &ChannelChooser::done, this, &PlayerRemote::putChooserAway);
  Q_EMIT chooserChanged();
  return true;
}

void PlayerRemote::putChooserAway() {
  if (!chooser_) return;
  // One of its own signals may have led here, and its rows are shown still.
  ChannelChooser* last = chooser_.release();
  Q_EMIT chooserChanged();
  last->deleteLater();
}

bool PlayerRemote::press(int key, int modifiers, bool again) {
  const auto held = Qt::KeyboardModifiers(modifiers) & ~Qt::KeypadModifier;
  const bool shift = held & Qt::ShiftModifier;
  const auto others = held & ~Qt::ShiftModifier;
  // The layout decides whether + and ? need Shift.
  if (others == Qt::ControlModifier) return pressWithControl(key, shift);
  if (others) return false;
  if ((key == Qt::Key_F || key == Qt::Key_P) && !shift && playback_.source()) {
    if (key == Qt::Key_F)
      toggleFullScreen();
    else
      toggleSmall();
    return true;
  }
  if (command(key)) return true;
  // The window goes on to the next control that is seen.
  if ((key == Qt::Key_Tab || key == Qt::Key_Backtab) && pictureOnly()) moved();
  if (!watching()) return false;
  // Some layouts write digits with Shift.
  const bool plain = !shift || isDigit(key);
  if (plain && ((chooser_ && chooser_->press(key)) || zap(key))) return true;
  switch (key) {
    case Qt::Key_N:
      return nextEpisode_.play();
    case Qt::Key_MediaNext:
      return !again && nextEpisode_.play();
    case Qt::Key_MediaPrevious:
      return !again && nextEpisode_.playPrevious();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return offersEpisode() && nextEpisode_.play();
    case Qt::Key_Left:
      return skip(shift ? -longSkip : -shortSkip);
    case Qt::Key_Right:
      return skip(shift ? longSkip : shortSkip);
    case Qt::Key_Z:
      changeShape();
      return true;
    case Qt::Key_A:
      nextAudio();
      return true;
    case Qt::Key_S:
      nextSubtitle();
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_VolumeUp:
      changeVolume(volumeStep);
      return true;
    case Qt::Key_Minus:
    case Qt::Key_VolumeDown:
      changeVolume(-volumeStep);
      return true;
    case Qt::Key_M:
    case Qt::Key_VolumeMute:
      toggleMuted();
      return true;
    default:
      return false;
  }
}

bool PlayerRemote::command(int key) {
  if (!playback_.source()) return false;
  switch (key) {
    // The one key that keyboards have for both is called "Play", too.
    case Qt::Key_MediaPlay:
    case Qt::Key_MediaTogglePlayPause:
      playback_.togglePause();
      return true;
    case Qt::Key_MediaPause:
      if (!playback_.paused()) playback_.togglePause();
      return true;
    case Qt::Key_MediaStop:
      playback_.stop();
      return true;
    default:
      return false;
  }
}

bool PlayerRemote::pressWithControl(int key, bool shift) {
  switch (key) {
    case Qt::Key_I:
      return !shift && statistics_.toggle();
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      if (watching()) changeDelay(TransportControls::delayStep);
      return watching();
    case Qt::Key_Minus:
      if (watching()) changeDelay(-TransportControls::delayStep);
      return watching();
    default:
      return false;
  }
}

bool PlayerRemote::escape() {
  if (chooser_) {
    putChooserAway();
    return true;
  }
  if (watching() && zapping_.takeBack()) return true;
  if (offersEpisode()) return nextEpisode_.refuse();
  if (!small_) return false;
  setSmall(false);
  return true;
}

bool PlayerRemote::offersEpisode() const {
  return watching() && !small_ && nextEpisode_.offered();
}

bool PlayerRemote::zap(int key) {
  if (isDigit(key)) {
    putChooserAway();
    return zapping_.type(key - Qt::Key_0);
  }
  switch (key) {
    case Qt::Key_Up:
    case Qt::Key_PageUp:
    case Qt::Key_ChannelUp:
    case Qt::Key_MediaNext:
      return zapping_.step(1);
    case Qt::Key_Down:
    case Qt::Key_PageDown:
    case Qt::Key_ChannelDown:
    case Qt::Key_MediaPrevious:
      return zapping_.step(-1);
    case Qt::Key_Backspace:
      return zapping_.goBack();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return zapping_.enter() || chooseChannel();
    case Qt::Key_I:
      banner_.show();
      return banner_.shown();
    default:
      return false;
  }
}

int PlayerRemote::pictureShape() const {
  return static_cast<int>(playback_.pictureShape());
}

void PlayerRemote::changeShape() {
  const auto next = (static_cast<std::size_t>(pictureShape()) + 1) % std::size(shapeNames);
  playback_.setPictureShape(static_cast<PictureShape>(next));
  say(tr(shapeNames[next]));
}

void PlayerRemote::changeVolume(double percent) {
  const double mutedFrom = playback_.transport()->mutedFrom();
  if (mutedFrom > 0 && percent <= 0) return say(tr("Muted"));
  const double present = mutedFrom > 0 ? mutedFrom : transport_.volume();
  const double volume = std::clamp(present + percent, 0.0, 100.0);
  playback_.setVolume(volume);
  say(tr("Volume %1 %").arg(qRound(volume)));
}

void PlayerRemote::toggleMuted() {
  playback_.toggleMuted();
  const int volume = qRound(transport_.volume());
  say(volume > 0 ? tr("Volume %1 %").arg(volume) : tr("Muted"));
}

void PlayerRemote::changeDelay(int milliseconds) {
  const int present = playback_.transport()->audioDelay();
  playback_.setAudioDelay(present + milliseconds);
  say(TransportControls::delayText(playback_.transport()->audioDelay()));
}

QVariantMap PlayerRemote::next(Round& round, int current, const QVariantList& choices) {
  const SteadyTime now = clock_.steadyNow();
  if (round.chosen && now - *round.chosen < noteTime) current = round.choice;
  round = {(current + 1) % static_cast<int>(choices.size()), now};
  return choices[round.choice].toMap();
}

void PlayerRemote::nextAudio() {
  const QVariantList tracks = transport_.audio();
  if (tracks.size() < 2) return say(tr("No other sound"));
  const QVariantMap track = next(audioRound_, transport_.audioChoice(), tracks);
  transport_.chooseAudio(track[u"id"_s].toInt());
  say(tr("Sound: %1").arg(track[u"name"_s].toString()));
}

void PlayerRemote::nextSubtitle() {
  const QVariantList tracks = transport_.subtitles();
  if (tracks.size() < 2) return say(tr("No subtitles"));
  const QVariantMap track = next(subtitleRound_, transport_.subtitleChoice(), tracks);
  transport_.chooseSubtitle(track[u"id"_s].toInt());
  say(tr("Subtitles: %1").arg(track[u"name"_s].toString()));
}

bool PlayerRemote::skip(double seconds) {
  // Until the source is open the position is that of the one before, and at last it stands still.
  if (playback_.loading() || !playback_.followed() || !playback_.transport()->seekable())
    return false;
  // Nor does it take a drag of the slider away.
  if (!transport_.beginSeek() && !skipping_) return true;
  transport_.dragTo(std::clamp(transport_.sliderValue() + seconds, 0.0, transport_.sliderEnd()));
  say(transport_.positionText() + u" / "_s + transport_.durationText());
  // Where the slider is seen.
  if (fullScreen()) moved();
  skipping_ = clock_.callAfter(skipRest, [this] {
    transport_.endSeek();
    skipping_.reset();
  });
  return true;
}

void PlayerRemote::say(const QString& note) {
  setNote(note);
  noting_ = clock_.callAfter(noteTime, [this] { setNote(QString()); });
}

void PlayerRemote::setNote(const QString& note) {
  if (std::exchange(note_, note) != note) Q_EMIT noteChanged();
}

}  // namespace vantor
