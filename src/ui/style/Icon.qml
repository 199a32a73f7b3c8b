import QtQuick
import Vantor.Style

// A symbol of the icon font. All are drawn from one size of it: for each size of a font the system's
// fonts are searched, once on each of two threads.
Item {
    id: icon

    required property string symbol
    property int size: 16
    property color color: Style.focusWhite

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    Text {
        anchors.centerIn: parent
        anchors.alignWhenCentered: false
        scale: icon.size / font.pixelSize
        text: Style.glyph(icon.symbol)
        font: Style.iconFont()
        color: icon.color
        Accessible.ignored: true
    }
}
