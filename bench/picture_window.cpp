// The least that shows a film.  picture_window ours|bare FILE WINDOW [PICTURE]  (640x360,
// 0,0,640x360) ours: our engine and surface in a Qt Quick window that holds nothing else; bare:
// libVLC alone, in a window of its own.
#include <QGuiApplication>
#include <QRegularExpression>
#include <optional>

#include "players.h"

using namespace Qt::StringLiterals;

namespace vantor::bench {
namespace {

/// "640x360" or "10,20,640x360".
QRect rectangle(const QString& text) {
  static const QRegularExpression form(u"^(?:(\\d+),(\\d+),)?(\\d+)x(\\d+)$"_s);
  const QRegularExpressionMatch match = form.match(text);
  return {match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(),
          match.captured(4).toInt()};
}

}  // namespace
}  // namespace vantor::bench

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() < 4) return 2;
  using namespace vantor::bench;
  const QUrl film = QUrl::fromLocalFile(arguments.at(2));
  const QRect window = rectangle(arguments.at(3));
  const QRect picture = arguments.size() > 4 ? rectangle(arguments.at(4)) : window;
  std::optional<BarePlayer> bare;
  std::optional<OurPlayer> ours;
  if (arguments.at(1) == u"bare"_s)
    bare.emplace(window.size()).firstPicture(film);
  else
    ours.emplace(window.size(), picture).firstPicture(film);
  return QGuiApplication::exec();
}
