#include "playback/recording.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>
#include <algorithm>

#include "platform/trace.h"

namespace vantor {

namespace {

using namespace Qt::StringLiterals;

const QStringList& recordingExtensions() {
  static const QStringList extensions{u"ts"_s,  u"mp4"_s, u"mkv"_s, u"avi"_s, u"mpg"_s,
                                      u"asf"_s, u"ogg"_s, u"wav"_s, u"m4v"_s};
  return extensions;
}

/// Names that sort by time.
QString newName(WallTime now, const QString& extension) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(now.time_since_epoch()).count();
  const QString random = QUuid::createUuid().toString(QUuid::WithoutBraces).first(8).toUpper();
  return u"Vantor-%1-%2.%3"_s.arg(seconds).arg(random, extension);
}

}  // namespace

Recording::Recording(MediaEngine& engine, Clock& clock, const Folders& folders)
    : engine_(engine), clock_(clock), folders_(folders) {
  engine_.onRecordingStopped = [this](const QString& path) { completed(path); };
}

Recording::~Recording() {
  engine_.onRecordingStopped = nullptr;
}

QString Recording::folder() const {
  return folders_.applicationSupport + u"/Vantor Player/Recordings"_s;
}

void Recording::start(const std::optional<QString>& folder) {
  if (stage_ != Stage::idle) return;
  const QString target = folder.value_or(this->folder());
  if (!makePrivateFolder(target)) {
    qCInfo(recordingTrace) << "making the folder of recordings: failed";
    setNotice(u"The recording folder could not be created."_s);
    return;
  }
  target_ = target;
  if (!engine_.startRecording(target)) {
    qCInfo(recordingTrace) << "recording a source: refused by the engine";
    setNotice(u"This source does not support recording."_s);
    return;
  }
  setStage(Stage::running);
  setNotice(u"Recording the current video. Stop recording before changing sources."_s);
}

void Recording::finish() {
  if (stage_ != Stage::running) return;
  setStage(Stage::saving);
  setNotice(u"Saving recording…"_s);
  if (engine_.stopRecording()) return;
  qCInfo(recordingTrace) << "saving a recording: the engine has none";
  setStage(Stage::idle);
  setNotice(u"Recording could not be finalized. Check the recording folder."_s);
}

void Recording::completed(const QString& path) {
  setStage(Stage::idle);
  setNotice(outcomeOf(path));
  refresh();
}

QString Recording::outcomeOf(const QString& path) const {
  const QFileInfo file(path);
  const QString place = QFileInfo(file.absolutePath()).canonicalFilePath();
  const bool ours = !path.isEmpty() && !target_.isEmpty() && !place.isEmpty() &&
                    place == QFileInfo(target_).canonicalFilePath();
  if (!ours || !file.exists())
    return u"No recording file was produced. This source may not support recording."_s;
  if (file.size() < 1) {
    QFile::remove(path);
    return u"No video was recorded. Try recording for longer or choose another source."_s;
  }
  const QString name = newName(clock_.now(), file.suffix());
  return QFile::rename(path, target_ + u'/' + name)
             ? u"Recording saved."_s
             : u"Recording saved. Open its folder to view the file."_s;
}

void Recording::refresh() {
  QFileInfoList found = QDir(folder()).entryInfoList(QDir::Files);
  found.removeIf([](const QFileInfo& file) {
    return !recordingExtensions().contains(file.suffix().toLower());
  });
  std::sort(found.begin(), found.end(),
            [](const QFileInfo& a, const QFileInfo& b) { return a.fileName() > b.fileName(); });
  QList<QUrl> files;
  for (const QFileInfo& file : found) files.append(QUrl::fromLocalFile(file.absoluteFilePath()));
  if (files_ == files) return;
  files_ = files;
  Q_EMIT filesChanged();
}

void Recording::refuseChange() {
  setNotice(u"Stop recording before changing sources."_s);
}

void Recording::setStage(Stage stage) {
  if (stage_ == stage) return;
  stage_ = stage;
  Q_EMIT stageChanged();
}

void Recording::setNotice(const QString& notice) {
  if (notice_ != notice) {
    notice_ = notice;
    Q_EMIT noticeChanged();
  }
  Q_EMIT noticeGiven();
}

}  // namespace vantor
