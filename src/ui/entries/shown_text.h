#pragma once

#include <QString>

namespace vantor {

/// As much of a provider's text as a screen has room for, since laying out a million letters takes
/// a quarter of a second.
inline QString shortened(QString text, qsizetype length) {
  if (text.size() <= length) return text;
  text.truncate(text.at(length).isLowSurrogate() ? length - 1 : length);
  return text;
}

/// A text for a place that shows several lines.
inline QString paragraph(QString text) {
  return shortened(std::move(text), 10'000);
}

/// A text for a place that shows one line: of one with line breaks the first line only would be
/// shown, or all of them.
inline QString oneLine(QString text) {
  text = shortened(std::move(text), 1'000);
  text.replace(QLatin1String("\r\n"), QLatin1String(" "));
  for (QChar& letter : text)
    if (letter == u'\n' || letter == u'\r' || letter == u'\v' || letter == u'\f' ||
        letter == QChar::LineSeparator || letter == QChar::ParagraphSeparator ||
        letter == QChar(0x85))
      letter = u' ';
  return text;
}

}  // namespace vantor
