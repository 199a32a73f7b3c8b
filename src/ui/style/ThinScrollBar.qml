import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style

ScrollBar {
    id: bar

    // The strip that resizes the window lies over the last 6.
    property bool atWindowEdge: false

    padding: 2
    leftPadding: atWindowEdge && mirrored ? 8 : 2
    rightPadding: atWindowEdge && !mirrored ? 8 : 2
    minimumSize: 0.05

    contentItem: Rectangle {
        implicitWidth: 5
        radius: 2.5
        color: Style.faded(Style.focusWhite, bar.pressed ? 0.5 : bar.hovered ? 0.35 : 0.2)
        visible: bar.size < 1
    }
}
