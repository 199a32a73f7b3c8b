#include "ui/entries/library_wording.h"

namespace vantor {

QString title(LibraryKind kind) {
  return textOf(kind, {u"TV", u"Movies", u"Shows"});
}

QString symbol(LibraryKind kind) {
  return textOf(kind, {u"play.tv", u"film", u"rectangle.stack"});
}

QString continueWatchingTitle() {
  return QStringLiteral("Continue watching");
}

}  // namespace vantor
