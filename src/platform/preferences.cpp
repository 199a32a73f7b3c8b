#include "platform/preferences.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMutex>
#include <QSettings>

#include "platform/folders.h"
#include "platform/mailbox.h"

namespace vantor {

using namespace Qt::StringLiterals;

namespace {

/// They tell what somebody watches.
void keepFromOthers(const QString& file) {
  QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
}

}  // namespace

/// What waits to be written; a value that changes again before its turn is written once.
struct Preferences::Writer {
  QString file;
  QMutex fileTurn;
  QMutex mutex;
  Changes waiting;

  void take(const Changes& changes) {
    const QMutexLocker lock(&mutex);
    waiting.insert(changes);
  }
  void write() {
    // From the taking of a batch to its end: no older batch may reach the file after a newer one.
    const QMutexLocker turn(&fileTurn);
    Changes batch;
    {
      const QMutexLocker lock(&mutex);
      batch.swap(waiting);
    }
    if (batch.isEmpty() || file.isEmpty()) return;
    makePrivateFolder(QFileInfo(file).absolutePath());
    QSettings settings(file, QSettings::IniFormat);
    for (auto it = batch.cbegin(); it != batch.cend(); ++it) {
      if (it.value())
        settings.setValue(it.key(), QString::fromUtf8(*it.value()));
      else
        settings.remove(it.key());
    }
    settings.sync();
    keepFromOthers(file);
  }
};

Preferences::Preferences(const QString& file) : writer_(std::make_shared<Writer>()) {
  writer_->file = file;
  if (file.isEmpty()) return;
  // Earlier runs made them for everyone.
  QFile::setPermissions(QFileInfo(file).absolutePath(),
                        QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  keepFromOthers(file);
  // Qt's lock of the file. Who is killed while making it leaves it empty, and every write would
  // wait half a minute for an owner.
  const QString lock = file + u".lock"_s;
  if (QFileInfo(lock).size() == 0) QFile::remove(lock);
  const QSettings settings(file, QSettings::IniFormat);
  for (const QString& key : settings.allKeys())
    values_.insert(key, settings.value(key).toString().toUtf8());
}

Preferences::~Preferences() {
  writer_->take(changed_);
  writer_->write();
}

void Preferences::store(const QString& key, const QByteArray& json) {
  const auto known = values_.constFind(key);
  if (known != values_.constEnd() && *known == json) return;
  values_.insert(key, json);
  writeLater(key, json);
}

void Preferences::remove(const QString& key) {
  if (values_.remove(key)) writeLater(key, std::nullopt);
}

void Preferences::rename(const QString& from, const QString& to) {
  const auto known = values_.constFind(from);
  if (known == values_.constEnd() || from == to) return;
  store(to, QByteArray(*known));
  remove(from);
}

void Preferences::writeLater(const QString& key, const std::optional<QByteArray>& json) {
  const bool isFirst = changed_.isEmpty();
  changed_.insert(key, json);
  if (!isFirst) return;
  // Behind whatever else is set in this turn of the event loop: what belongs together is written
  // together, or the end of the program could come between.
  Mailbox::postToMain([this, alive = std::weak_ptr(writer_)] {
    if (alive.expired()) return;
    writer_->take(std::exchange(changed_, {}));
    worker_.post([writer = writer_] { writer->write(); });
  });
}

std::optional<QString> Preferences::text(const QString& key) const {
  const QStringList list = textList(key);
  if (list.size() != 1) return std::nullopt;
  return list.first();
}

void Preferences::setText(const QString& key, const QString& value) {
  setTextList(key, {value});
}

QStringList Preferences::textList(const QString& key) const {
  QStringList list;
  for (const auto element : QJsonDocument::fromJson(values_.value(key)).array()) {
    if (!element.isString()) return {};
    list.append(element.toString());
  }
  return list;
}

void Preferences::setTextList(const QString& key, const QStringList& value) {
  store(key, QJsonDocument(QJsonArray::fromStringList(value)).toJson(QJsonDocument::Compact));
}

NumberLists Preferences::numberLists(const QString& key) const {
  const QJsonObject object = QJsonDocument::fromJson(values_.value(key)).object();
  NumberLists lists;
  for (auto it = object.constBegin(); it != object.constEnd(); ++it) {
    if (!it.value().isArray()) return {};
    QList<double> numbers;
    for (const auto number : it.value().toArray()) {
      if (!number.isDouble()) return {};
      numbers.append(number.toDouble());
    }
    lists.insert(it.key(), numbers);
  }
  return lists;
}

void Preferences::setNumberLists(const QString& key, const NumberLists& value) {
  QJsonObject object;
  for (auto it = value.cbegin(); it != value.cend(); ++it) {
    QJsonArray numbers;
    for (const double number : it.value()) numbers.append(number);
    object.insert(it.key(), numbers);
  }
  store(key, QJsonDocument(object).toJson(QJsonDocument::Compact));
}

}  // namespace vantor
