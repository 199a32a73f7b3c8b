import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

ListView {
    id: list

    required property Views views
    readonly property TVShell shell: views.shell
    readonly property ItemListModel items: views.items
    readonly property int rowHeight: 44
    readonly property int firstRow: Math.floor((contentY - originY) / (rowHeight + spacing))
    readonly property int lastRow: Math.floor((contentY + height - originY) / (rowHeight + spacing))

    model: views.channels.rows
    // Room for the focus ring, which is drawn around a row.
    topMargin: 4
    bottomMargin: 12
    leftMargin: 4
    rightMargin: 10
    spacing: 6
    clip: true
    reuseItems: true
    cacheBuffer: 400
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: true
    // The highlight is the model's, not the view's.
    keyNavigationEnabled: false
    currentIndex: -1
    ScrollBar.vertical: ThinScrollBar {}

    Accessible.role: Accessible.List
    Accessible.name: shell.headerTitle

    Keys.forwardTo: [keys]

    HighlightKeys {
        id: keys
        shell: list.shell
        rowsInView: Math.floor(list.height / (list.rowHeight + list.spacing))
        onMenuRequested: list.openSelectionMenu()
    }

    function centerSelection() {
        if (items.currentRow >= 0)
            positionViewAtIndex(items.currentRow, ListView.Center);
        tell();
    }

    function tell() {
        if (activeFocus && items.currentRow >= 0)
            Assistive.highlight(itemAtIndex(items.currentRow));
    }

    onActiveFocusChanged: tell()

    function openSelectionMenu() {
        const row = itemAtIndex(items.currentRow) as GuideRow;
        if (row)
            openMenu(row, row.width / 3, row.height / 2);
    }

    function openMenu(row: GuideRow, x: real, y: real) {
        menu.active = true;
        const opened = menu.item as EntryMenu;
        opened.favoriteSymbol = row.bookmarkSymbol;
        opened.openAt(row.index, row, x, y);
    }

    function reportRows() {
        views.channels.showRows(firstRow, lastRow);
    }

    Component.onCompleted: {
        centerSelection();
        reportRows();
    }
    Component.onDestruction: views.channels.showRows(0, -1)
    onHeightChanged: centerSelection()
    onFirstRowChanged: reportRows()
    onLastRowChanged: reportRows()

    Connections {
        target: list.items

        function onCurrentRowChanged() {
            list.centerSelection();
        }

        function onModelReset() {
            menu.active = false;
            list.centerSelection();
        }
    }

    // On the list, not on its rows: the first click of two moves the rows under the pointer.
    TapHandler {
        property int row: -1

        onSingleTapped: eventPoint => {
            list.forceActiveFocus(Qt.MouseFocusReason);
            row = list.indexAt(eventPoint.position.x, eventPoint.position.y);
            list.shell.selectRow(row);
        }
        onDoubleTapped: if (row >= 0)
            list.shell.activateSelection()
    }

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => {
            const row = list.itemAt(eventPoint.position.x, eventPoint.position.y) as GuideRow;
            if (row)
                list.openMenu(row, eventPoint.position.x - row.x, eventPoint.position.y - row.y);
        }
    }

    Loader {
        id: menu
        active: false

        sourceComponent: EntryMenu {
            width: 250
            shell: list.shell
            playText: "Watch channel"
            playSymbol: "play.fill"
        }
    }

    delegate: GuideRow {
        width: list.width - list.leftMargin - list.rightMargin
        height: list.rowHeight
        focused: list.activeFocus
        artworkStore: list.views.artwork
        onOpened: row => list.shell.openRow(row)
    }
}
