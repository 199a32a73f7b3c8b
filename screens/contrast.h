#pragma once

#include <QString>
#include <vector>

class QQuickWindow;

namespace vantor::screens {

/// How well a text can be told from what is behind it, by the definitions of WCAG 2.2.
struct TextContrast {
  QString text;
  double ratio = 0;  // 1 (none) to 21 (black and white)
  double least = 0;  // what is asked for: of words by 1.4.3 (AA), of symbols by 1.4.11

  bool suffices() const { return ratio >= least; }
};

/// Of each text that the window shows, in the picture of the window, at the place where it is
/// worst. A picture behind it (video, poster) may be any, and is taken to be white and to be black.
/// WCAG asks nothing of controls that are disabled and of what cannot be used because a sheet is
/// open.
std::vector<TextContrast> textContrasts(QQuickWindow& window);

}  // namespace vantor::screens
