import QtQuick
import Vantor.Style

// A symbol of the icon font. All are drawn from one size of it: for each size of a font the system's
// fonts are searched, once on each of two threads.
Item {
    id: icon

    required property string symbol
    property int size: 16
    property color color: Style.focusWhite
    property int horizontalAlignment: Text.AlignHCenter

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    Text {
        readonly property bool atRight: icon.horizontalAlignment === Text.AlignRight
        // Its box is that of its own size.
        x: atRight ? icon.width - width : (icon.width - width) / 2
        anchors.verticalCenter: parent.verticalCenter
        scale: icon.size / font.pixelSize
        transformOrigin: atRight ? Item.Right : Item.Center
        text: Style.glyph(icon.symbol)
        font: Style.iconFont(20)
        color: icon.color
        Accessible.ignored: true
    }
}
