#pragma once

#include <QString>

namespace vantor {

/// Writes what is found out, a row each, to a file descriptor at once: what follows may hang. What
/// comes from outside is cut to one short line without the path of the user's home.
class Report {
 public:
  explicit Report(int descriptor) : descriptor_(descriptor) {}

  void say(const QString& name, const QString& value);
  /// Without a name.
  void quote(const QString& line);

 private:
  int descriptor_;
};

/// The text with "~" in place of the user's home.
QString withoutHome(QString text);

}  // namespace vantor
