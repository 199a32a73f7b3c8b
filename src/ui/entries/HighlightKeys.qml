import QtQuick
import Vantor.Ui

// The keys of a view whose highlight is the model's own: they are forwarded to it.
Item {
    id: keys

    required property TVShell shell
    property int columns: 1
    required property int rowsInView

    signal menuRequested

    Keys.onUpPressed: shell.moveSelection(TVShell.Up, columns)
    Keys.onDownPressed: shell.moveSelection(TVShell.Down, columns)
    Keys.onLeftPressed: shell.moveSelection(LayoutMirroring.enabled ? TVShell.Right : TVShell.Left, 1)
    Keys.onRightPressed: shell.moveSelection(LayoutMirroring.enabled ? TVShell.Left : TVShell.Right, 1)
    Keys.onReturnPressed: shell.activateSelection()
    Keys.onEnterPressed: shell.activateSelection()
    Keys.onMenuPressed: menuRequested()
    Keys.onPressed: event => {
        const page = columns * Math.max(1, rowsInView - 1);
        event.accepted = true;
        if (event.key === Qt.Key_PageUp)
            shell.moveSelection(TVShell.Up, page);
        else if (event.key === Qt.Key_PageDown)
            shell.moveSelection(TVShell.Down, page);
        else if (event.key === Qt.Key_F10 && event.modifiers === Qt.ShiftModifier)
            menuRequested();
        else
            event.accepted = false;
    }
}
