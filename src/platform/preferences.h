#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

#include "platform/worker.h"

class QSettings;

namespace vantor {

using NumberLists = QHash<QString, QList<double>>;

/// The user's preferences: values under text keys in one INI file. Main thread only.
///
/// Reads answer from memory; what is set in one turn of the event loop goes to the file together,
/// and has reached it when the destructor ends. Setting a value to what it is writes nothing.
/// Damaged or foreign values read as absent. The file and its folder are its owner's only.
class Preferences {
 public:
  /// Without a file, which is an empty path, values last as long as the object.
  explicit Preferences(const QString& file);
  ~Preferences();

  bool contains(const QString& key) const { return values_.contains(key); }

  std::optional<QString> text(const QString& key) const;
  void setText(const QString& key, const QString& value);

  QStringList textList(const QString& key) const;
  void setTextList(const QString& key, const QStringList& value);

  NumberLists numberLists(const QString& key) const;
  void setNumberLists(const QString& key, const NumberLists& value);

  void remove(const QString& key);
  /// The value goes on under another key, in place of what is there; without one nothing happens.
  void rename(const QString& from, const QString& to);

 private:
  void store(const QString& key, const QByteArray& json);
  void writeLater(const QString& key, const std::optional<QByteArray>& json);

  using Changes = QHash<QString, std::optional<QByteArray>>;  // absent: to be removed
  struct Writer;
  QHash<QString, QByteArray> values_;  // JSON text of each value
  std::shared_ptr<Writer> writer_;
  Changes changed_;  // in this turn
  Worker worker_;
};

}  // namespace vantor
