#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <optional>

namespace vantor {

/// What the command line and the bundle identifier ask of this run.
struct LaunchArguments {
  enum class Task { play, tellHelp, tellVersion, diagnose };

  Task task = Task::play;
  bool demo = false;                 // open the preview library
  bool isolated = false;             // touch neither account nor saved state
  bool verbose = false;              // tell of failures on standard error
  std::optional<QString> smokeTest;  // path of a media file to play at start
  QUrl file;                         // a media file to play, with an absolute path; or empty
  QString show;                      // the section to begin with, as it was typed; or empty
  QString mistake;                   // what is wrong with the arguments, in a sentence; or empty

  /// `arguments` as typed, the program's own name first. The toolkit's own are taken for mistakes.
  static LaunchArguments read(const QStringList& arguments, const QString& bundleIdentifier);
  /// The answer to `--help`. Needs an application, whose name it tells.
  static QString help();
};

}  // namespace vantor
