import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

MenuItem {
    id: item

    property string symbol: ""  // empty: none
    readonly property color ink: highlighted ? Style.canvas : Style.focusWhite

    implicitHeight: 32
    leftPadding: symbol === "" ? 12 : 38
    rightPadding: 12
    font: Style.body
    Accessible.role: Accessible.MenuItem
    Accessible.name: text

    contentItem: Text {
        text: item.text
        font: item.font
        color: item.ink
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
    }
}
