import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

MenuItem {
    id: item

    required property int index
    required property var modelData
    readonly property bool startsMenu: modelData.heading !== ""
    readonly property string keysText: modelData.keyNames

    text: modelData.title
    implicitHeight: 32 + (startsMenu ? 26 : 0)
    topPadding: startsMenu ? 26 : 0
    bottomPadding: 0
    leftPadding: 12
    rightPadding: 12
    font: Style.body
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.description: menu?.opened ? keysText + ", " + (menu as PopupMenu).placeOf(item) : ""

    contentItem: Item {
        implicitWidth: title.implicitWidth + keys.implicitWidth + 2 * Style.gap

        Text {
            id: title
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            text: item.text
            textFormat: Text.PlainText
            font: item.font
            color: item.highlighted ? Style.canvas : Style.focusWhite
        }

        Text {
            id: keys
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: item.keysText
            textFormat: Text.PlainText
            font: Style.caption
            color: item.highlighted ? Style.canvas : Style.secondary
        }
    }

    background: Item {
        Text {
            anchors.left: parent.left
            anchors.leftMargin: 12
            y: 8
            visible: item.startsMenu
            text: item.modelData.heading
            textFormat: Text.PlainText
            font: Style.font(10, Font.DemiBold, 0.5)
            color: Style.mint
        }

        Rectangle {
            y: item.topPadding
            width: parent.width
            height: 32
            radius: Style.radius
            color: item.highlighted ? Style.focusWhite : "transparent"
        }
    }
}
