import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style

TextField {
    id: field

    implicitHeight: 40
    leftPadding: 12
    rightPadding: 12
    font: Style.font(14)
    color: Style.focusWhite
    placeholderTextColor: Style.secondary
    selectionColor: Style.mint
    selectedTextColor: Style.canvas
    selectByMouse: true
    opacity: enabled ? 1 : Style.disabledOpacity
    horizontalAlignment: TextInput.AlignLeft
    verticalAlignment: TextInput.AlignVCenter

    background: Rectangle {
        radius: Style.radius
        color: Style.panelColor
        border.color: field.activeFocus ? Style.mint : Style.hairline
        border.width: field.activeFocus ? 2 : 1
    }
}
