#include "ui/entries/library_wording.h"

#include <QCoreApplication>

namespace vantor {

QString title(LibraryKind kind) {
  switch (kind) {
    case LibraryKind::live:
      return QCoreApplication::translate("Library", "TV");
    case LibraryKind::movies:
      return QCoreApplication::translate("Library", "Movies");
    case LibraryKind::shows:
      return QCoreApplication::translate("Library", "Shows");
  }
  return {};
}

QString symbol(LibraryKind kind) {
  return textOf(kind, {u"play.tv", u"film", u"rectangle.stack"});
}

QString continueWatchingTitle() {
  return QCoreApplication::translate("Library", "Continue watching");
}

}  // namespace vantor
