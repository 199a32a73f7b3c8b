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

Recording::Recording(Announcements& announcements, MediaEngine& engine, Clock& clock,
                     const Folders& folders)
    : announcements_(announcements),
      engine_(engine),
      clock_(clock),
      folders_(folders),
      stage_(announcements, *this, &Recording::stageChanged, Stage::idle),
      notice_(announcements, *this, &Recording::noticeChanged),
      noticeGiven_(announcements, *this, &Recording::noticeGiven),
      files_(announcements, *this, &Recording::filesChanged) {
  engine_.onRecordingStopped = [this](const QString& path) { completed(path); };
}

Recording::~Recording() {
  engine_.onRecordingStopped = nullptr;
}

QString Recording::folder() const {
  return folders_.applicationSupport + u"/Vantor Player/Recordings"_s;
}

bool Recording::start(const std::optional<QString>& folder) {
  const Attempt attempt(recordingTrace, "starting a recording");
  const QString target = folder.value_or(this->folder());
  if (!makePrivateFolder(target)) {
    attempt.failed(u"no folder"_s);
    say(tr("The recording folder could not be created."));
    return false;
  }
  target_ = target;
  if (!engine_.startRecording(target)) {
    attempt.failed(u"refused by the engine"_s);
    say(tr("This source does not support recording."));
    return false;
  }
  enter(Stage::running, tr("Recording the current video. Stop recording before changing sources."));
  return true;
}

bool Recording::finish() {
  if (stage() != Stage::running) return false;
  const Attempt attempt(recordingTrace, "saving a recording");
  enter(Stage::saving, tr("Saving recording…"));
  if (engine_.stopRecording()) return true;
  attempt.failed(u"the engine has none"_s);
  enter(Stage::idle, tr("Recording could not be finalized. Check the recording folder."));
  return false;
}

void Recording::completed(const QString& path) {
  const Announcements::Scope scope(announcements_);
  enter(Stage::idle, outcomeOf(path));
  refresh();
}

QString Recording::outcomeOf(const QString& path) const {
  const QFileInfo file(path);
  const QString place = QFileInfo(file.absolutePath()).canonicalFilePath();
  const bool ours = !path.isEmpty() && !target_.isEmpty() && !place.isEmpty() &&
                    place == QFileInfo(target_).canonicalFilePath();
  if (!ours || !file.exists())
    return tr("No recording file was produced. This source may not support recording.");
  if (file.size() < 1) {
    QFile::remove(path);
    return tr("No video was recorded. Try recording for longer or choose another source.");
  }
  const QString name = newName(clock_.now(), file.suffix());
  return QFile::rename(path, target_ + u'/' + name)
             ? tr("Recording saved.")
             : tr("Recording saved. Open its folder to view the file.");
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
  files_.set(std::move(files));
}

void Recording::refuseChange() {
  say(tr("Stop recording before changing sources."));
}

void Recording::enter(Stage stage, const QString& notice) {
  const Announcements::Scope scope(announcements_);
  stage_.set(stage);
  say(notice);
}

void Recording::say(const QString& notice) {
  const Announcements::Scope scope(announcements_);
  notice_.set(notice);
  noticeGiven_.note();
}

}  // namespace vantor
