import QtQuick
import Vantor.Ui

ChannelList {
    id: list

    required property Views views
    readonly property TVShell shell: views.shell
    readonly property ItemListModel items: views.items

    model: views.channels.rows
    artwork: views.artwork
    currentRow: items.currentRow
    focused: activeFocus
    activeFocusOnTab: true
    Accessible.name: shell.headerTitle
    onRowsShown: (first, last) => views.channels.showRows(first, last)
    onOpened: row => shell.openRow(row)

    Keys.forwardTo: [keys]

    HighlightKeys {
        id: keys
        shell: list.shell
        rowsInView: Math.floor(list.height / list.pitch)
        onMenuRequested: list.openSelectionMenu()
    }

    function openSelectionMenu() {
        const row = itemAtIndex(items.currentRow) as GuideRow;
        if (row)
            openMenu(row, row.width / 3, row.height / 2);
    }

    function openMenu(row: GuideRow, x: real, y: real) {
        const opened = menu.made() as EntryMenu;
        opened.favoriteSymbol = row.bookmarkSymbol;
        opened.openAt(row.index, row, x, y);
    }

    Component.onDestruction: views.channels.showRows(0, -1)

    Connections {
        target: list.items

        function onModelReset() {
            list.centerCurrent();
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

    MenuTap {
        onAsked: place => {
            const row = list.itemAt(place.x, place.y) as GuideRow;
            if (row)
                list.openMenu(row, place.x - row.x, place.y - row.y);
        }
    }

    EntryMenuLoader {
        id: menu
        items: list.items

        sourceComponent: EntryMenu {
            narrowest: 250
            shell: list.shell
            playText: qsTr("Watch channel")
            playSymbol: "play.fill"
        }
    }
}
