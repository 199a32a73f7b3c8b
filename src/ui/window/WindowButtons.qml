import QtQuick
import Vantor.Style
import Vantor.Ui

Row {
    id: buttons

    required property WindowActions window
    required property Commands commands

    spacing: 2

    IconButton {
        id: opener
        symbol: "menu"
        help: qsTr("Menu (F10)")
        Accessible.name: qsTr("Menu")
        menuOpen: menu.menu?.visible ?? false
        onClicked: menu.toggle()

        MenuLoader {
            id: menu

            sourceComponent: CommandMenu {
                y: opener.height + 4
                x: opener.mirrored ? 0 : opener.width - width
                commands: buttons.commands
            }
        }
    }

    FrameButtons {
        window: buttons.window
    }

    Shortcut {
        sequence: "F10"
        autoRepeat: false
        onActivated: menu.toggle()
    }
}
