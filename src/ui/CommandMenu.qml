import QtQuick
import QtQuick.Controls.Basic
import QtQml.Models
import Vantor.Style
import Vantor.Ui

// Every command of the program, with its keys; also makes the keys work.
Menu {
    id: menu

    required property MenuCommands commands

    width: 270
    padding: 6
    margins: 8
    modal: false

    background: Rectangle {
        radius: 8
        color: Style.panelColor
        border.color: Style.hairline
    }

    Instantiator {
        model: menu.commands.commands
        onObjectAdded: (index, object) => menu.insertItem(index, object as MenuItem)
        onObjectRemoved: (index, object) => menu.removeItem(object as MenuItem)

        delegate: CommandItem {
            onTriggered: menu.commands.run(index)
        }
    }

    Instantiator {
        model: menu.commands.commands

        delegate: Shortcut {
            required property int index
            required property var modelData

            // A plain key belongs to what has the focus; the shell takes it when nothing did.
            enabled: modelData.keys !== "Space"
            sequence: modelData.keys
            onActivated: menu.commands.run(index)
        }
    }
}
