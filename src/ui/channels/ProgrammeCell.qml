import QtQuick
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: cell

    required property string text
    property color ink: Style.focusWhite

    radius: Style.radius

    Text {
        x: 12
        width: parent.width - 2 * 12
        anchors.verticalCenter: parent.verticalCenter
        text: cell.text
        textFormat: Text.PlainText
        font: Style.body
        color: cell.ink
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        maximumLineCount: 1
    }
}
