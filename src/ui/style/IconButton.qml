import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style

// A bare icon that acts; `help` is its name and its tool tip.
AbstractButton {
    id: button

    required property string symbol
    required property string help
    property int size: 20
    property color color: Style.focusWhite
    // Its menu lies where the tool tip would.
    property bool menuOpen: false

    implicitWidth: 34
    implicitHeight: 34
    opacity: enabled ? 1 : Style.disabledOpacity
    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    Accessible.role: Accessible.Button
    Accessible.name: help
    Accessible.onPressAction: if (enabled)
        button.clicked()

    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    ToolTip.text: help
    ToolTip.visible: hovered && !down && !menuOpen
    ToolTip.delay: 700

    background: Rectangle {
        radius: Style.radius
        color: Style.faded(Style.focusWhite, button.down ? 0.18 : button.hovered ? 0.09 : 0)

        FocusRing {
            shown: button.visualFocus
        }
    }

    contentItem: Icon {
        symbol: button.symbol
        size: button.size
        color: button.color
    }
}
