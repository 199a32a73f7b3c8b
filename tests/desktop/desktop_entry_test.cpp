// What is installed beside the program says of it what it says itself.
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSet>

#include "core/section.h"
#include "desktop/media_files.h"
#include "platform/launch_arguments.h"
#include "support/files.h"

namespace vantor::test {
namespace {

using namespace Qt::StringLiterals;

QString installed(const QString& name) {
  return QString::fromUtf8(readFile(QStringLiteral(VANTOR_PACKAGING) + u'/' + name));
}

/// Every first group of the pattern.
QStringList found(const QString& text, const QString& pattern) {
  QStringList all;
  for (const QRegularExpressionMatch& match :
       QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text))
    all.append(match.captured(1));
  return all;
}

QSet<QString> setOf(const QStringList& list) {
  return {list.begin(), list.end()};
}

TEST(DesktopEntry, NamesTheTypesAndSectionsThatTheProgramOpens) {
  const QString entry = installed(u"tv.vantor.player.desktop"_s);
  EXPECT_EQ(found(entry, u"^MimeType=(.*);$"_s).value(0).split(u';'), mediaTypes());
  const QStringList actions = found(entry, u"^Actions=(.*);$"_s).value(0).split(u';');
  EXPECT_EQ(actions, found(entry, u"^\\[Desktop Action (.*)\\]$"_s));
  EXPECT_EQ(actions, found(entry, u"^Exec=vantor --show (.*)$"_s));
  for (const QString& action : actions)
    EXPECT_TRUE(sectionNamed(action).has_value()) << action.toStdString();
}

TEST(DesktopEntry, CompletionsKnowEveryOptionAndSection) {
  const QSet<QString> options = setOf(found(LaunchArguments::help(), u"^ +--([a-z-]+)"_s));
  EXPECT_TRUE(options.contains(u"show"_s));
  const QString bash = installed(u"vantor.bash"_s);
  const QString fish = installed(u"vantor.fish"_s);
  EXPECT_EQ(setOf(found(bash, u"--([a-z][a-z-]*)"_s)), options);
  EXPECT_EQ(setOf(found(fish, u"-l ([a-z-]+)"_s)), options);
  for (const QString& shell : {bash, fish}) {
    const QStringList sections = found(shell, u"'((?:[a-z]+ ){2,}[a-z]+)'"_s).value(0).split(u' ');
    EXPECT_EQ(std::size_t(sections.size()), allSections.size());
    for (const QString& section : sections)
      EXPECT_TRUE(sectionNamed(section).has_value()) << section.toStdString();
  }
}

}  // namespace
}  // namespace vantor::test
