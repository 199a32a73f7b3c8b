#include "ui/shell/commands.h"

#include <QKeySequence>
#include <array>
#include <optional>

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

enum class Menu { file, playback, library, program };

struct Command {
  Act act;
  Menu menu;
  QString title;
  QString keys;
  /// Whether it does the same under whatever is open.
  bool anywhere = false;
};

std::array<Command, 10> table() {
  return {{
      {Act::openFile, Menu::file, Commands::tr("Open Media File…"), u"Ctrl+O"_s, true},
      {Act::connect, Menu::file, Commands::tr("Connect Provider…"), u"Ctrl+K"_s},
      {Act::togglePause, Menu::playback, Commands::tr("Play / Pause"), u"Space"_s},
      {Act::stop, Menu::playback, Commands::tr("Stop"), u"Ctrl+."_s, true},
      {Act::fullScreen, Menu::playback, Commands::tr("Full Screen"), u"F11"_s},
      {Act::live, Menu::library, title(LibraryKind::live), u"Ctrl+1"_s},
      {Act::movies, Menu::library, title(LibraryKind::movies), u"Ctrl+2"_s},
      {Act::shows, Menu::library, title(LibraryKind::shows), u"Ctrl+3"_s},
      {Act::settings, Menu::program, Commands::tr("Settings…"), u"Ctrl+,"_s},
      {Act::quit, Menu::program, Commands::tr("Quit"), u"Ctrl+Q"_s, true},
  }};
}

QString title(Menu menu) {
  switch (menu) {
    case Menu::file:
      return Commands::tr("File");
    case Menu::playback:
      return Commands::tr("Playback");
    case Menu::library:
      return Commands::tr("Library");
    case Menu::program:
      return u"Vantor Player"_s;
  }
  return {};
}

}  // namespace

Commands::Commands(AppModel& model, QObject* parent) : QObject(parent), model_(model) {}

QVariantList Commands::list() const {
  QVariantList list;
  std::optional<Menu> menu;
  for (const Command& command : table()) {
    const bool first = std::exchange(menu, command.menu) != command.menu;
    list.append(
        QVariantMap{{u"heading"_s, first ? title(command.menu) : QString()},
                    {u"title"_s, command.title},
                    {u"keys"_s, command.keys},
                    {u"keyNames"_s, QKeySequence(command.keys).toString(QKeySequence::NativeText)},
                    {u"anywhere"_s, command.anywhere}});
  }
  return list;
}

void Commands::enter(Section section) {
  model_.navigate(section);
  Q_EMIT sectionChosen();
}

void Commands::run(int command) {
  const auto commands = table();
  if (command < 0 || command >= static_cast<int>(commands.size())) return;
  switch (commands[static_cast<std::size_t>(command)].act) {
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
      return enter(Section::live);
    case Act::movies:
      return enter(Section::movies);
    case Act::shows:
      return enter(Section::shows);
    case Act::settings:
      return model_.setShowingSettings(true);
    case Act::quit:
      Q_EMIT quitRequested();
  }
}

}  // namespace vantor
