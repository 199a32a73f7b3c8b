import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style

// A menu whose first entry is ready to be chosen by key.
Menu {
    id: menu

    padding: 6
    margins: 8
    onOpened: currentIndex = 0

    background: Rectangle {
        radius: 8
        color: Style.panelColor
        border.color: Style.hairline
    }
}
