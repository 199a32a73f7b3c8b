import QtQuick
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: cell

    required property string text
    property color ink: Style.focusWhite
    // The program's own words, which are shown whole.
    property bool note: false

    radius: Style.radius

    Text {
        x: 12
        width: parent.width - 2 * 12
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        text: cell.text
        textFormat: Text.PlainText
        font: Style.body
        color: cell.ink
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        wrapMode: cell.note ? Text.Wrap : Text.NoWrap
        maximumLineCount: cell.note ? 4 : 1
        fontSizeMode: cell.note ? Text.Fit : Text.FixedSize
        minimumPixelSize: 7
    }
}
