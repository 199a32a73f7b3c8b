#pragma once

#include <QList>
#include <QString>

namespace vantor {

class AppModel;

/// One piece of a settings page, in the order of the page.
struct SettingsBlock {
  enum class Kind { text, secondary, row, link };
  enum class Action {
    none,
    showPlaylists,
    showPlayback,
    showGuide,
    showAbout,
    changeProvider,
    refreshPlaylists,
    removeProvider,
    refreshGuide,
    openFile,
    openLicenses,
    openSupport,
  };

  Kind kind = Kind::text;
  QString text;
  QString subtitle;  // of rows
  Action action = Action::none;
};

enum class SettingsPage : unsigned char { main, playlists, playback, guide, about };

QString title(SettingsPage page);
/// The blocks of a page, given the state of the model.
QList<SettingsBlock> blocksOf(SettingsPage page, const AppModel& model);

}  // namespace vantor
