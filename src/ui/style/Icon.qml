import QtQuick
import Vantor.Style

// A symbol of the icon font, around its middle. All are drawn from one size of it: for each size of a
// font the system's fonts are searched, once on each of two threads.
Text {
    required property string symbol
    property int size: 16

    width: size
    height: size
    scale: size / font.pixelSize
    text: Style.glyph(symbol)
    textFormat: Text.PlainText
    font: Style.iconFont()
    color: Style.focusWhite
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true
}
