import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

// An entry of a menu, with a symbol before it or, smaller, without one.
MenuItem {
    id: item

    property string symbol: ""  // empty: none
    // One of several of which one is in force, and whether it is that one.
    property bool choice: false
    property bool marked: false
    readonly property bool plain: symbol === ""
    // A symbol of its own says it already.
    readonly property bool ticked: marked && plain
    readonly property color ink: highlighted ? Style.canvas : Style.focusWhite
    readonly property int before: plain ? 12 : 38
    readonly property int after: ticked ? 34 : 12

    implicitHeight: 32
    leftPadding: mirrored ? after : before
    rightPadding: mirrored ? before : after
    font: plain ? Style.font(12) : Style.body
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.description: menu?.opened ? (menu as PopupMenu).placeOf(item) : ""

    // The control's own state, since it tells assistive programs of that.
    checkable: choice
    checked: marked
    onToggled: checked = Qt.binding(() => item.marked)
    indicator: null

    contentItem: Text {
        text: item.text
        font: item.font
        color: item.ink
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
    }

    background: Rectangle {
        radius: Style.radius
        color: item.highlighted ? Style.focusWhite : "transparent"

        Icon {
            anchors.left: parent.left
            anchors.leftMargin: 10
            width: 20
            anchors.verticalCenter: parent.verticalCenter
            symbol: item.symbol
            color: item.ink
        }

        Icon {
            anchors.right: parent.right
            anchors.rightMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            visible: item.ticked
            symbol: "checkmark"
            color: item.highlighted ? Style.canvas : Style.mint
        }
    }
}
