#include "ui/window/dialog_file_panel.h"

#include <QGuiApplication>
#include <QMimeDatabase>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSet>
#include <algorithm>
#include <array>

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

/// "*.mkv" for any case: "*.[mM][k][vV]". Not every desktop's panel matches without regard to it.
QString inAnyCase(const QString& pattern) {
  QString any;
  for (const QChar letter : pattern) {
    if (letter.isLetter())
      any += u'[' + letter.toLower() + letter.toUpper() + u']';
    else
      any += letter;
  }
  return any;
}

bool isMedia(const QString& type) {
  static const std::array others = {"application/mxf"_L1, "application/ogg"_L1,
                                    "application/vnd.rn-realmedia"_L1, "application/vnd.ms-asf"_L1};
  return type.startsWith("video/"_L1) || type.startsWith("audio/"_L1) ||
         std::find(others.begin(), others.end(), type) != others.end();
}

}  // namespace

QStringList DialogFilePanel::nameFilters() {
  return {kinds() + " ("_L1 + patterns().join(u' ') + u')'};
}

QString DialogFilePanel::kinds() {
  return tr("Movies and audio");
}

QStringList DialogFilePanel::patterns() {
  // What a system without a database of its own may lack.
  QSet<QString> patterns = {u"*.vob"_s, u"*.mts"_s, u"*.m2ts"_s, u"*.ts"_s, u"*.mxf"_s, u"*.mka"_s};
  for (const QMimeType& type : QMimeDatabase().allMimeTypes()) {
    if (!isMedia(type.name())) continue;
    for (const QString& pattern : type.globPatterns())
      if (pattern.startsWith("*."_L1)) patterns.insert(pattern.toLower());
  }
  QStringList sorted;
  for (const QString& pattern : patterns) sorted.append(inAnyCase(pattern));
  sorted.sort();
  return sorted;
}

void DialogFilePanel::darkenPath(const QColor& ground) {
  const auto darken = [&ground](const auto& self, const QQuickItem& item) -> void {
    if (item.property("upButton").isValid())
      if (auto* const painted = item.property("background").value<QQuickItem*>())
        painted->setProperty("color", ground);
    for (const QQuickItem* child : item.childItems()) self(self, *child);
  };
  for (const QWindow* window : QGuiApplication::topLevelWindows())
    if (const auto* quick = qobject_cast<const QQuickWindow*>(window))
      darken(darken, *quick->contentItem());
}

Pending<std::optional<QUrl>> DialogFilePanel::chooseMediaFile() {
  cancel();
  // Of its own: a dialog that does not load answers before this returns.
  Pending<std::optional<QUrl>> choice;
  choice_ = choice;
  Q_EMIT requested();
  return choice;
}

void DialogFilePanel::choose(const QUrl& file) {
  if (choice_) choice_->resolve(file);
  choice_.reset();
}

void DialogFilePanel::cancel() {
  if (choice_) choice_->resolve(std::nullopt);
  choice_.reset();
}

}  // namespace vantor
