import QtQuick
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: row

    required property int index
    required property string label
    required property string name
    required property bool isPlaying
    property bool focused: false
    property int count: 0

    signal chosen(int row)

    implicitHeight: 44
    radius: Style.radius
    color: press.pressed ? Style.focusWhite : Style.panelColor

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: label + ", " + Assistive.placeOfEntry(index, count, isPlaying, false)
    Accessible.focusable: true
    Accessible.focused: focused
    Accessible.onPressAction: row.chosen(row.index)

    FocusRing {
        // Inside of the list's clip.
        anchors.margins: 0
        shown: row.focused
    }

    Text {
        id: number
        anchors.left: parent.left
        anchors.leftMargin: 14
        width: 75
        anchors.verticalCenter: parent.verticalCenter
        text: row.label
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        font: Style.body
        color: press.pressed ? Style.canvas : Style.mint
        elide: Text.ElideRight
    }

    Text {
        anchors.left: number.right
        anchors.right: icon.left
        anchors.rightMargin: Style.gap
        anchors.verticalCenter: parent.verticalCenter
        text: row.name
        horizontalAlignment: Text.AlignLeft
        textFormat: Text.PlainText
        font: Style.font(13, row.isPlaying ? Font.DemiBold : Font.Normal)
        color: press.pressed ? Style.canvas : Style.focusWhite
        elide: Text.ElideRight
    }

    Icon {
        id: icon
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        symbol: "play.circle"
        size: 20
        color: press.pressed ? Style.canvas : row.isPlaying ? Style.mint : Style.focusWhite
    }

    TapHandler {
        id: press
        onTapped: row.chosen(row.index)
    }
}
