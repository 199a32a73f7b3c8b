#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace vantor {

/// What the command line and the bundle identifier ask of this run.
struct LaunchArguments {
  bool demo = false;                 // open the preview library
  bool isolated = false;             // touch neither account nor saved state
  std::optional<QString> smokeTest;  // path of a media file to play at start

  /// `arguments` as typed, the program's own name first.
  static LaunchArguments read(const QStringList& arguments, const QString& bundleIdentifier);
};

}  // namespace vantor
