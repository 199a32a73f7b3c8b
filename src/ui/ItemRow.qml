import QtQuick
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: row

    required property int index
    required property string name
    required property bool isSelected
    required property bool isPlaying
    required property bool isFavorite
    property bool focused: false
    readonly property color ink: isSelected ? Style.canvas : Style.focusWhite

    signal chosen(int row)
    signal opened(int row)

    implicitHeight: 44
    radius: Style.radius
    color: isSelected ? Style.mint : Style.panelColor

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.onPressAction: row.opened(row.index)

    FocusRing {
        shown: row.focused && row.isSelected
    }

    Text {
        id: number
        x: 8
        width: 34
        anchors.verticalCenter: parent.verticalCenter
        text: row.index + 1
        font: Style.caption
        color: row.ink
        opacity: 0.7
    }

    Text {
        anchors.left: number.right
        anchors.leftMargin: Style.gap
        anchors.right: marks.left
        anchors.rightMargin: Style.gap
        anchors.verticalCenter: parent.verticalCenter
        text: row.name
        textFormat: Text.PlainText
        font: Style.font(13, Font.DemiBold)
        color: row.ink
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
    }

    Row {
        id: marks
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        Icon {
            visible: row.isFavorite
            symbol: "bookmark.fill"
            size: 16
            color: row.ink
        }

        Icon {
            visible: row.isPlaying
            symbol: "play.fill"
            size: 18
            color: row.isSelected ? Style.canvas : Style.mint
        }
    }

    TapHandler {
        onPressedChanged: if (pressed)
            row.chosen(row.index)
        onDoubleTapped: row.opened(row.index)
    }
}
