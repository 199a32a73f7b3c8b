#include "app/writing_systems.h"

#include <QFontDatabase>

namespace vantor {

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
  return result;
}

}  // namespace vantor
