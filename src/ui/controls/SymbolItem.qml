import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

// An entry of a menu, with a symbol before it or, smaller, without one.
MenuItem {
    id: item

    property string symbol: ""  // empty: none
    property bool marked: false
    readonly property bool plain: symbol === ""
    readonly property color ink: highlighted ? Style.canvas : Style.focusWhite

    implicitHeight: plain ? 30 : 32
    leftPadding: plain ? 12 : 38
    rightPadding: marked ? 34 : 12
    font: plain ? Style.font(12) : Style.body
    Accessible.role: Accessible.MenuItem
    Accessible.name: text

    contentItem: Text {
        text: item.text
        font: item.font
        color: item.ink
        textFormat: Text.PlainText
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        radius: Style.radius
        color: item.highlighted ? Style.focusWhite : "transparent"

        Icon {
            x: 10
            width: 20
            anchors.verticalCenter: parent.verticalCenter
            symbol: item.symbol
            color: item.ink
        }

        Icon {
            x: parent.width - width - 10
            anchors.verticalCenter: parent.verticalCenter
            visible: item.marked
            symbol: "checkmark"
            color: item.highlighted ? Style.canvas : Style.mint
        }
    }
}
