#include "support/fake_engine.h"

namespace vantor::test {

using namespace Qt::StringLiterals;

void FakeEngine::load(const MediaSource& loaded) {
  calls.append(u"load %1 agent=%2 caching=%3"_s.arg(loaded.address.toString(), loaded.userAgent)
                   .arg(loaded.networkCaching));
  source = loaded;
  now = {.hasMedia = true};
}

void FakeEngine::unload() {
  calls.append(u"unload"_s);
  now = {.releasing = releasesLate};
}

void FakeEngine::play() {
  calls.append(u"play"_s);
  if (now.hasMedia)
    now.state = now.state == EngineState::paused ? EngineState::playing : EngineState::opening;
}

void FakeEngine::pause() {
  calls.append(u"pause"_s);
  if (now.hasMedia) now.state = EngineState::paused;
}

void FakeEngine::setTime(std::int64_t milliseconds) {
  calls.append(u"setTime %1"_s.arg(milliseconds));
}

void FakeEngine::setVolume(int percent) {
  calls.append(u"setVolume %1"_s.arg(percent));
}

void FakeEngine::setAudioTrack(std::int32_t id) {
  calls.append(u"setAudioTrack %1"_s.arg(id));
}

void FakeEngine::setSubtitleTrack(std::int32_t id) {
  calls.append(u"setSubtitleTrack %1"_s.arg(id));
}

void FakeEngine::setRate(float rate) {
  calls.append(u"setRate %1"_s.arg(rate));
}

void FakeEngine::setAudioDevice(const QString& id) {
  calls.append(u"setAudioDevice "_s + id);
}

void FakeEngine::setAudioDelay(int milliseconds) {
  calls.append(u"setAudioDelay %1"_s.arg(milliseconds));
}

void FakeEngine::saveSnapshot(const QString& file, int width) {
  calls.append(u"saveSnapshot %1"_s.arg(width));
  snapshot = file;
  if (!picture.isNull()) picture.scaledToWidth(width).save(file, "PNG");
}

bool FakeEngine::startRecording(const QString& folder) {
  calls.append(u"startRecording "_s + folder);
  return now.recordable;
}

bool FakeEngine::stopRecording() {
  calls.append(u"stopRecording"_s);
  return recordingStops;
}

}  // namespace vantor::test
