#include "test_language.h"

#include <QGuiApplication>
#include <algorithm>

namespace vantor::screens {

using namespace Qt::StringLiterals;

namespace {

const QChar closing = u'\u200B';
const QChar opening = u'\u2060';

QString written(QChar letter, PseudoTranslator::Letters letters) {
  static const QString latin = u"abcdefghijklmnopqrstuvwxyz"_s;
  static const QString accented = u"áƀçďéƒğĥíĵķľḿñóþɋřšťúṽŵẋýž"_s;
  static const QString arabic = u"ابجدهوزحطيكلمنسعفصقرشتثخذض"_s;
  const qsizetype place = latin.indexOf(letter.toLower());
  if (place < 0) return letter;
  if (letters == PseudoTranslator::Letters::Arabic) return arabic.at(place);
  const QChar replaced = accented.at(place);
  const QString shown = letter.isUpper() ? QString(replaced).toUpper() : QString(replaced);
  return u"aeiou"_s.contains(letter.toLower()) ? shown + replaced : shown;
}

}  // namespace

QString PseudoTranslator::translate(const char* context, const char* source, const char*,
                                    int) const {
  // Of which the direction of writing is one.
  if (qstrcmp(context, "QGuiApplication") == 0) return {};
  const QString text = QString::fromUtf8(source);
  QString pseudo;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const bool isPlace = text.at(i) == u'%' && i + 1 < text.size();
    // What comes there has brackets of its own, or is a name; these have no width.
    pseudo += isPlace ? closing + text.mid(i++, 2) + opening : written(text.at(i), letters_);
  }
  const qsizetype missing = text.size() * 14 / 10 - pseudo.size() - 2;
  return u'⟦' + pseudo + QString(std::max<qsizetype>(missing, 0), u'~') + u'⟧';
}

TestLanguage::TestLanguage(const QString& name) {
  QLocale::setDefault(name == "pseudo"_L1 ? QLocale::c() : QLocale(name));
  if (name == "pseudo"_L1)
    pseudo_.emplace(PseudoTranslator::Letters::accented);
  else if (name == "ar"_L1)
    pseudo_.emplace(PseudoTranslator::Letters::Arabic);
  else
    own_.emplace(QStringList{name});
  if (!pseudo_) return;
  QCoreApplication::installTranslator(&*pseudo_);
  QGuiApplication::setLayoutDirection(QLocale().textDirection());
}

TestLanguage::~TestLanguage() {
  QLocale::setDefault(before_);
  QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

}  // namespace vantor::screens
