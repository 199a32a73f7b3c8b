import QtQuick
import Vantor.Style

// Around its parent while `shown`; drawn outside of it so that it shows on light and dark alike.
Rectangle {
    property bool shown: false
    property int cornerRadius: Style.radius

    anchors.fill: parent
    anchors.margins: -3
    radius: cornerRadius + 3
    color: "transparent"
    border.color: Style.mint
    border.width: 2
    visible: shown
}
