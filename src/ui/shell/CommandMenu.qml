import QtQuick
import QtQuick.Controls.Basic
import QtQml.Models
import Vantor.Style
import Vantor.Ui

// Every command of the program, with its keys.
PopupMenu {
    id: commandMenu

    required property MenuCommands commands

    width: 270
    modal: false

    Instantiator {
        model: commandMenu.commands.commands
        onObjectAdded: (index, object) => commandMenu.insertItem(index, object as MenuItem)
        onObjectRemoved: (index, object) => commandMenu.removeItem(object as MenuItem)

        delegate: CommandItem {
            onTriggered: commandMenu.commands.run(index)
        }
    }
}
