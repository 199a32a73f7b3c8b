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

/// The blocks of a page, given the state of the model; empty for an unknown page.
QList<SettingsBlock> settingsPage(const QString& page, const AppModel& model);

inline const QString settingsMainPage = QStringLiteral("Settings");

}  // namespace vantor
