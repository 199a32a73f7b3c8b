import QtQuick
import QtQml.Models
import Vantor.Ui

// Makes the keys of the program's commands work.
Instantiator {
    id: shortcuts

    required property MenuCommands commands

    model: commands.commands

    delegate: Shortcut {
        required property int index
        required property var modelData

        // A plain key belongs to what has the focus; the shell takes it when nothing did.
        enabled: modelData.keys !== "Space"
        sequence: modelData.keys
        autoRepeat: false
        onActivated: shortcuts.commands.run(index)
    }
}
