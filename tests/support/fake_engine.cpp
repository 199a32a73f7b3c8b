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
  now = {.releasing = releasesLate && (now.hasMedia || now.releasing)};
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

void FakeEngine::saveSnapshot(const QString& file, int width) {
  note("saveSnapshot", width);
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
