#include "app/writing_systems.h"

#include <QFontDatabase>

#include "ui/style/style.h"

namespace vantor {

using namespace Qt::StringLiterals;

QStringList writingSystemsWithoutFont() {
  QStringList result;
  for (const auto system : {QFontDatabase::Latin, QFontDatabase::Greek, QFontDatabase::Cyrillic,
                            QFontDatabase::Armenian, QFontDatabase::Hebrew, QFontDatabase::Arabic,
                            QFontDatabase::Devanagari, QFontDatabase::Bengali, QFontDatabase::Tamil,
                            QFontDatabase::Thai, QFontDatabase::Georgian, QFontDatabase::Vietnamese,
                            QFontDatabase::SimplifiedChinese, QFontDatabase::TraditionalChinese,
                            QFontDatabase::Japanese, QFontDatabase::Korean})
    if (QFontDatabase::families(system).isEmpty())
      result.append(QFontDatabase::writingSystemName(system));
  if (!QFontDatabase::hasFamily(Style::iconFont().family()))
    result.append(u"the player's symbols"_s);
  return result;
}

}  // namespace vantor
