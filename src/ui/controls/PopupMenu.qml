import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style

// A menu one of whose entries is ready to be chosen by key.
Menu {
    id: menu

    // That entry.
    property int first: 0

    padding: 6
    margins: 8
    onOpened: currentIndex = first

    background: Rectangle {
        radius: 8
        color: Style.panelColor
        border.color: Style.hairline
    }
}
