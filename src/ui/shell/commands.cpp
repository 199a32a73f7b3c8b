#include "ui/shell/commands.h"

#include <array>

#include "core/app_model.h"
#include "playback/playback.h"
#include "ui/entries/library_wording.h"

namespace vantor {
namespace {

using namespace Qt::StringLiterals;

enum class Act {
  openFile,
  connect,
  togglePause,
  stop,
  fullScreen,
  live,
  movies,
  shows,
  settings,
  quit
};

struct Command {
  Act act;
  QString menu;
  QString title;
  QString keys;
  /// Whether it does the same under whatever is open.
  bool anywhere = false;
};

const std::array<Command, 10>& table() {
  static const std::array<Command, 10> commands = {{
      {Act::openFile, u"File"_s, u"Open Media File…"_s, u"Ctrl+O"_s, true},
      {Act::connect, u"File"_s, u"Connect Provider…"_s, u"Ctrl+K"_s},
      {Act::togglePause, u"Playback"_s, u"Play / Pause"_s, u"Space"_s},
      {Act::stop, u"Playback"_s, u"Stop"_s, u"Ctrl+."_s, true},
      {Act::fullScreen, u"Playback"_s, u"Full Screen"_s, u"F11"_s},
      {Act::live, u"Library"_s, title(LibraryKind::live), u"Ctrl+1"_s},
      {Act::movies, u"Library"_s, title(LibraryKind::movies), u"Ctrl+2"_s},
      {Act::shows, u"Library"_s, title(LibraryKind::shows), u"Ctrl+3"_s},
      {Act::settings, u"Vantor Player"_s, u"Settings…"_s, u"Ctrl+,"_s},
      {Act::quit, u"Vantor Player"_s, u"Quit"_s, u"Ctrl+Q"_s, true},
  }};
  return commands;
}

}  // namespace

Commands::Commands(AppModel& model, QObject* parent) : QObject(parent), model_(model) {}

QVariantList Commands::list() const {
  QVariantList list;
  QString menu;
  for (const Command& command : table()) {
    const bool first = std::exchange(menu, command.menu) != command.menu;
    list.append(QVariantMap{{u"heading"_s, first ? command.menu : QString()},
                            {u"title"_s, command.title},
                            {u"keys"_s, command.keys},
                            {u"anywhere"_s, command.anywhere}});
  }
  return list;
}

void Commands::run(int command) {
  if (command < 0 || command >= static_cast<int>(table().size())) return;
  switch (table()[static_cast<std::size_t>(command)].act) {
    case Act::openFile:
      return model_.openFile();
    case Act::connect:
      return model_.setShowingConnect(true);
    case Act::togglePause:
      return model_.playback().togglePause();
    case Act::stop:
      return model_.playback().stop();
    case Act::fullScreen:
      return model_.playback().setFullScreen(!model_.playback().fullScreen());
    case Act::live:
      return model_.navigate(Section::live);
    case Act::movies:
      return model_.navigate(Section::movies);
    case Act::shows:
      return model_.navigate(Section::shows);
    case Act::settings:
      return model_.setShowingSettings(true);
    case Act::quit:
      Q_EMIT quitRequested();
  }
}

}  // namespace vantor
