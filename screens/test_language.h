#pragma once

#include <QLocale>
#include <QTranslator>
#include <optional>

#include "app/language.h"

namespace vantor::screens {

/// Texts that show what becomes of a translation: each in ⟦brackets⟧, in letters that English has
/// not, 40 % longer. What stands outside of brackets was not translated, or is a name.
class PseudoTranslator final : public QTranslator {
 public:
  enum class Letters { accented, Arabic };
  explicit PseudoTranslator(Letters letters) : letters_(letters) {}

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* disambiguation,
                    int n) const override;

 private:
  Letters letters_;
};

/// The language of a run: "pseudo"; "ar", the same in Arabic letters and from right to left; or one
/// that the program has, and anything else is English.
class TestLanguage {
 public:
  explicit TestLanguage(const QString& name);
  ~TestLanguage();
  Q_DISABLE_COPY_MOVE(TestLanguage)

 private:
  QLocale before_;
  std::optional<PseudoTranslator> pseudo_;
  std::optional<Language> own_;
};

}  // namespace vantor::screens
