#include "app/language.h"

#include <QCoreApplication>
#include <QFile>
#include <QGuiApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

const QString compiled = u":/i18n"_s;

/// The code of the first language that there is, empty for English.
QString firstOf(const QStringList& wanted) {
  for (const QString& language : wanted) {
    QString code = language.section(u'-', 0, 0).section(u'_', 0, 0).toLower();
    if (code == "en"_L1) break;
    if (QFile::exists(compiled + u"/vantor_"_s + code + u".qm"_s)) return code;
  }
  return {};
}

}  // namespace

Language::Language(const QStringList& wanted) : code_(firstOf(wanted)) {
  if (code_.isEmpty()) return;
  const QLocale locale(code_);
  // The last one installed is asked first.
  if (toolkit_.load(locale, u"qt"_s, u"_"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&toolkit_);
  if (own_.load(locale, u"vantor"_s, u"_"_s, compiled)) QCoreApplication::installTranslator(&own_);
  QGuiApplication::setLayoutDirection(locale.textDirection());
}

}  // namespace vantor
