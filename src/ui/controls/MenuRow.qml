import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

// One line of a list of choices that drops down.
ItemDelegate {
    id: row

    required property int index
    required property int count
    property bool marked: false

    implicitHeight: 32
    leftPadding: mirrored ? 30 : 12
    rightPadding: mirrored ? 12 : 30
    font: Style.body
    Accessible.role: Accessible.ListItem
    Accessible.name: text
    Accessible.description: Assistive.placeOfChoice(index, count, marked)
    Accessible.selectable: true
    Accessible.selected: marked
    Accessible.focusable: true
    Accessible.focused: highlighted
    Accessible.onPressAction: row.clicked()

    contentItem: Text {
        text: row.text
        font: row.font
        color: row.highlighted ? Style.canvas : Style.focusWhite
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
    }

    indicator: Icon {
        x: row.mirrored ? 10 : row.width - width - 10
        y: (row.height - height) / 2
        visible: row.marked
        symbol: "checkmark"
        color: row.highlighted ? Style.canvas : Style.mint
    }

    background: Rectangle {
        radius: Style.radius
        color: row.highlighted ? Style.focusWhite : "transparent"
    }
}
