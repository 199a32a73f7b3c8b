#pragma once

#include <QString>

namespace vantor {

/// A name for a place that shows one line: a text with line breaks would show its first line only.
inline QString oneLine(QString name) {
  name.replace(QLatin1String("\r\n"), QLatin1String(" "));
  for (QChar& letter : name)
    if (letter == u'\n' || letter == u'\r' || letter == u'\v' || letter == u'\f' ||
        letter == QChar::LineSeparator || letter == QChar::ParagraphSeparator ||
        letter == QChar(0x85))
      letter = u' ';
  return name;
}

}  // namespace vantor
