import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

MenuItem {
    id: item

    required property var modelData

    text: modelData.name
    implicitHeight: 30
    leftPadding: 12
    rightPadding: 12
    font: Style.font(12)
    Accessible.role: Accessible.MenuItem
    Accessible.name: text

    contentItem: Text {
        text: item.text
        font: item.font
        color: item.highlighted ? Style.canvas : Style.focusWhite
        textFormat: Text.PlainText
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        radius: Style.radius
        color: item.highlighted ? Style.focusWhite : "transparent"
    }
}
