#pragma once

#include <QString>
#include <QStringView>

namespace vantor {

/// The glyph of the icon font that draws a symbol; empty for an unknown name.
QString glyph(QStringView symbol);

}  // namespace vantor
