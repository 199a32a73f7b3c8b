import QtQuick
import QtQml.Models
import Vantor.Ui

// Makes the keys of the program's commands work.
Instantiator {
    id: shortcuts

    required property Commands commands
    // The commands that work over an open sheet, or those that do not. Qt keeps every key from what
    // has a popup above it; keys that work anywhere must belong to the window and not to an item.
    property bool anywhere: false

    model: commands.list

    delegate: Shortcut {
        required property int index
        required property var modelData

        // A plain key belongs to what has the focus; the shell takes it when nothing did.
        enabled: modelData.keys !== "Space" && modelData.anywhere === shortcuts.anywhere
        sequence: modelData.keys
        autoRepeat: false
        onActivated: shortcuts.commands.run(index)
    }
}
