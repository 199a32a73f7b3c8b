import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

ListView {
    id: list

    required property ItemListModel items
    required property TVShell shell

    model: items
    leftMargin: Style.inset
    rightMargin: Style.inset
    topMargin: 16
    bottomMargin: 16
    spacing: 6
    clip: true
    reuseItems: true
    // Rows made ahead of their time are made while idle, and Qt 6.4 complains when the list is
    // replaced meanwhile.
    cacheBuffer: 0
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: true
    // The highlight is the model's, not the view's.
    keyNavigationEnabled: false
    currentIndex: -1
    ScrollBar.vertical: ThinScrollBar {}

    Accessible.role: Accessible.List
    Accessible.name: shell.headerTitle

    Keys.onUpPressed: shell.moveSelection(TVShell.Up, 1)
    Keys.onDownPressed: shell.moveSelection(TVShell.Down, 1)
    Keys.onLeftPressed: shell.moveSelection(TVShell.Left, 1)
    Keys.onRightPressed: shell.moveSelection(TVShell.Right, 1)
    Keys.onReturnPressed: shell.activateSelection()
    Keys.onEnterPressed: shell.activateSelection()

    function centerSelection() {
        if (items.currentRow >= 0)
            positionViewAtIndex(items.currentRow, ListView.Center);
    }

    Component.onCompleted: centerSelection()
    onHeightChanged: centerSelection()

    Connections {
        target: list.items

        function onCurrentRowChanged() {
            list.centerSelection();
        }
    }

    delegate: ItemRow {
        width: list.width - 2 * Style.inset
        focused: list.activeFocus
        onChosen: row => {
            list.forceActiveFocus(Qt.MouseFocusReason);
            list.shell.selectRow(row);
        }
        onOpened: row => list.shell.openRow(row)
    }
}
