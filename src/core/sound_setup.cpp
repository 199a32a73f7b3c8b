#include "core/sound_setup.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "platform/preferences.h"
#include "playback/playback.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

const QString deviceKey = u"sound-device"_s;
const QString delaysKey = u"sound-delays"_s;  // lists of one number of milliseconds, by device
const QString lastUsed;  // the device that none is called like: for as long as it is unknown
constexpr qsizetype delayBound = 50;  // devices

std::optional<int> delayOf(const NumberLists& delays, const QString& device) {
  const double stored = delays.value(device).value(0, std::nan(""));
  if (!std::isfinite(stored)) return {};
  constexpr double longest = Playback::longestAudioDelay;
  return static_cast<int>(std::clamp(stored, -longest, longest));
}

}  // namespace

SoundSetup::SoundSetup(Preferences& preferences, Playback& playback)
    : preferences_(preferences), playback_(playback) {
  restore();
  const TransportState* transport = playback.transport();
  connect(transport, &TransportState::audioDeviceChanged, this, &SoundSetup::storeDevice);
  connect(transport, &TransportState::audioDelayChanged, this, &SoundSetup::storeDelay);
  connect(transport, &TransportState::audioDevicesChanged, this, &SoundSetup::takeDelay);
}

void SoundSetup::restore() {
  TransportState& transport = *playback_.transport();
  transport.setAudioDevice(preferences_.text(deviceKey).value_or(QString()));
  transport.setAudioDelay(delayOf(preferences_.numberLists(delaysKey), lastUsed).value_or(0));
}

void SoundSetup::takeDelay() {
  const TransportState& transport = *playback_.transport();
  const QString device = transport.audioDevices().inForce;
  if (device.isEmpty()) return;
  const int delay = delayOf(preferences_.numberLists(delaysKey), device).value_or(0);
  if (delay != transport.audioDelay()) playback_.setAudioDelay(delay);
}

void SoundSetup::storeDevice() {
  preferences_.setText(deviceKey, playback_.transport()->audioDevice());
}

void SoundSetup::storeDelay() {
  const TransportState& transport = *playback_.transport();
  const QString device = transport.audioDevices().inForce;
  NumberLists delays = preferences_.numberLists(delaysKey);
  if (delays.size() > delayBound) delays.clear();
  for (const QString& key : {lastUsed, device})
    delays.insert(key, {static_cast<double>(transport.audioDelay())});
  preferences_.setNumberLists(delaysKey, delays);
}

}  // namespace vantor
