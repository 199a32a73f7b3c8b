#pragma once

#include <QString>
#include <QStringView>

namespace vantor {

/// The glyph of the icon font that draws a symbol; empty for an unknown name.
QString glyph(QStringView symbol);

/// Makes the icon font available and names its family; empty when the font is not installed.
QString loadIconFont();

}  // namespace vantor
