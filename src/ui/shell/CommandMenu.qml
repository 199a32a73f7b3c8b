import QtQuick
import QtQuick.Controls.Basic
import QtQml.Models
import Vantor.Style
import Vantor.Ui

// Every command of the program, with its keys.
PopupMenu {
    id: commandMenu

    required property Commands commands

    narrowest: 270
    modal: false

    Instantiator {
        model: commandMenu.commands.list
        onObjectAdded: (index, object) => commandMenu.insertItem(index, object as MenuItem)
        onObjectRemoved: (index, object) => commandMenu.removeItem(object as MenuItem)

        delegate: CommandItem {
            onTriggered: commandMenu.commands.run(index)
        }
    }
}
