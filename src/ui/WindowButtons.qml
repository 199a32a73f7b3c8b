import QtQuick
import Vantor.Style
import Vantor.Ui

Row {
    id: buttons

    required property WindowActions window
    required property MenuCommands commands

    spacing: 2

    IconButton {
        id: opener
        symbol: "menu"
        help: qsTr("Menu (F10)")
        Accessible.name: qsTr("Menu")
        onClicked: menu.toggle()

        MenuLoader {
            id: menu

            sourceComponent: CommandMenu {
                y: opener.height + 4
                x: opener.width - width
                commands: buttons.commands
            }
        }
    }

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

    Shortcut {
        sequence: "F10"
        autoRepeat: false
        onActivated: menu.toggle()
    }
}
