#pragma once

#include <QString>

namespace vantor {

/// The user's own folders, from the XDG base directory variables. Absolute paths.
struct Folders {
  QString applicationSupport;  // $XDG_DATA_HOME
  QString configuration;       // $XDG_CONFIG_HOME
  QString temporary;           // $TMPDIR
  QString state;               // $XDG_STATE_HOME

  static Folders ofUser();

  QString preferencesFile() const;
  /// What the program notes of its runs.
  QString notes() const;
};

/// Creates `path` with missing parents, giving each folder that it creates the mode 0700. When it
/// cannot, `errno` tells why.
bool makePrivateFolder(const QString& path);

}  // namespace vantor
