#include "app/language.h"

#include <QGuiApplication>
#include <QKeySequence>
#include <QLocale>

#include "support/model_fixture.h"
#include "ui/channels/programme_times.h"
#include "ui/shell/status_view.h"

namespace vantor::test {
namespace {

TEST(LanguageTest, TheToolkitSpeaksTheSame) {
  const QKeySequence keys(Qt::CTRL | Qt::Key_Space);
  const Language language({u"de"_s});
  EXPECT_EQ(keys.toString(QKeySequence::NativeText), u"Strg+Leertaste"_s);
}

TEST(LanguageTest, TheFirstOfTheUsersLanguagesThatThereIs) {
  const std::vector<std::pair<QStringList, QString>> cases = {
      {{u"de-AT"_s, u"de"_s}, u"de"_s},
      {{u"pt-BR"_s, u"fr_FR"_s, u"es"_s}, u"fr"_s},
      {{u"en-GB"_s, u"de"_s}, {}},
      {{u"xx-YY"_s}, {}},
      {{u"C"_s}, {}},
      {{u"../de"_s, QString()}, {}},
      {{}, {}},
  };
  for (const auto& [wanted, code] : cases)
    EXPECT_EQ(Language(wanted).code(), code) << wanted.join(u' ').toStdString();
}

class LocaleTest : public ModelTest {};

TEST_F(LocaleTest, NumbersDecideTheNounAndTimesAreWrittenAsTheUserDoes) {
  // Of a locale: no, one and two entries, and the times of a programme.
  const std::tuple<QString, QString, QString> cases[] = {
      {u"C"_s, u"0 items, 1 item, 2 items"_s, u"20:15–21:00"_s},
      {u"en_US"_s, u"0 items, 1 item, 2 items"_s, u"8:15 PM–9:00 PM"_s},
      {u"de_DE"_s, u"0 Einträge, 1 Eintrag, 2 Einträge"_s, u"20:15–21:00"_s},
      {u"fr_FR"_s, u"0 élément, 1 élément, 2 éléments"_s, u"20:15–21:00"_s},
      {u"es_ES"_s, u"0 elementos, 1 elemento, 2 elementos"_s, u"20:15–21:00"_s},
  };
  const ProviderTime start =
      std::chrono::floor<ProviderTime::duration>(std::chrono::system_clock::from_time_t(
          QDateTime({2026, 11, 27}, {20, 15}).toSecsSinceEpoch()));
  const GuideEntry programme{.start = start, .end = start + std::chrono::minutes(45)};
  launch();
  signIn();
  const StatusView status(model->session(), model->browsing(), model->libraries());
  for (int entries = 0; entries < 3; ++entries) {
    model->load(LibraryKind::live, LoadMode::refresh);
    answer(LibraryKind::live, rows(LibraryKind::live, 1, entries));
    for (const auto& [locale, counts, times] : cases) {
      SCOPED_TRACE(locale.toStdString());
      const Language language({locale});
      QLocale::setDefault(QLocale(locale));
      EXPECT_EQ(status.count(), counts.split(u", "_s)[entries]);
      EXPECT_EQ(programmeTimes(programme).replace(QChar(0x202F), u' '), times);
    }
  }
  QLocale::setDefault(QLocale::c());
}

}  // namespace
}  // namespace vantor::test
