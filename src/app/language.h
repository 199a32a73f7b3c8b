#pragma once

#include <QString>
#include <QStringList>
#include <QTranslator>

namespace vantor {

/// Puts the program's texts into a language, and the toolkit's as far as its translations are
/// installed, for as long as it lives. Made before the texts are, with a QGuiApplication.
class Language {
 public:
  /// The first of the user's languages ("de-AT", "de", …) that the program has. They are written in
  /// English, which takes nothing; so it is without one that it has.
  explicit Language(const QStringList& wanted);
  Q_DISABLE_COPY_MOVE(Language)

  /// "de"; empty: English.
  const QString& code() const { return code_; }

 private:
  QString code_;
  QTranslator own_;
  QTranslator toolkit_;
};

}  // namespace vantor
