import QtQuick
import Vantor.Style

Text {
    required property string symbol
    property int size: 16

    text: Style.glyph(symbol)
    font: Style.iconFont(size)
    color: Style.focusWhite
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    Accessible.ignored: true
}
