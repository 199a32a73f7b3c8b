import QtQuick
import Vantor.Style
import Vantor.Ui

Row {
    id: buttons

    required property WindowActions window

    spacing: 2

    IconButton {
        symbol: "window.minimize"
        help: qsTr("Minimize")
        size: 18
        onClicked: buttons.window.minimize()
    }

    IconButton {
        symbol: buttons.window.maximized ? "window.restore" : "window.maximize"
        help: buttons.window.maximized ? qsTr("Restore") : qsTr("Maximize")
        size: 18
        onClicked: buttons.window.toggleMaximized()
    }

    IconButton {
        symbol: "window.close"
        help: qsTr("Close")
        size: 18
        onClicked: buttons.window.close()
    }
}
