// What is installed beside the program says of it what it says itself.
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <set>

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

void expectSections(const QStringList& names) {
  for (const QString& name : names)
    EXPECT_TRUE(sectionNamed(name).has_value()) << name.toStdString();
}

TEST(DesktopEntry, NamesTheTypesAndSectionsThatTheProgramOpens) {
  const QString entry = installed(u"tv.vantor.player.desktop"_s);
  EXPECT_EQ(found(entry, u"^MimeType=(.*);$"_s).value(0).split(u';'), mediaTypes());
  const QStringList actions = found(entry, u"^Actions=(.*);$"_s).value(0).split(u';');
  EXPECT_EQ(actions, found(entry, u"^\\[Desktop Action (.*)\\]$"_s));
  EXPECT_EQ(actions, found(entry, u"^Exec=vantor --show (.*)$"_s));
  expectSections(actions);
}

TEST(DesktopEntry, CompletionsKnowEveryOptionAndSection) {
  const auto optionsIn = [](const QString& text, const QString& pattern) {
    const QStringList all = found(text, pattern);
    return std::set(all.begin(), all.end());
  };
  const auto options = optionsIn(LaunchArguments::help(), u"^ +--([a-z-]+)"_s);
  EXPECT_TRUE(options.contains(u"show"_s));
  for (const auto& [file, pattern] : {std::pair(u"vantor.bash"_s, u"--([a-z][a-z-]*)"_s),
                                      {u"vantor.fish"_s, u"-l ([a-z-]+)"_s}}) {
    const QString completions = installed(file);
    EXPECT_EQ(optionsIn(completions, pattern), options);
    const QStringList sections =
        found(completions, u"'((?:[a-z]+ ){2,}[a-z]+)'"_s).value(0).split(u' ');
    EXPECT_EQ(std::size_t(sections.size()), allSections.size());
    expectSections(sections);
  }
}

}  // namespace
}  // namespace vantor::test
