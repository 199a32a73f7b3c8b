import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

FocusScope {
    id: area

    required property ItemListModel items
    required property PosterView view
    required property TVShell shell
    required property ArtworkStore artwork

    readonly property int columns: 4
    readonly property int columnGap: 16
    readonly property int rowGap: 20

    function openMenu(row: int, place: Item, x: real, y: real) {
        if (row >= 0)
            (menu.made() as EntryMenu).openAt(row, place, x, y);
    }

    function openMenuByKey() {
        const card = grid.itemAtIndex(view.keyRow);
        if (card)
            openMenu(view.keyRow, card, card.width / 2, card.height / 3);
    }

    HighlightKeys {
        id: keys
        shell: area.shell
        columns: area.columns
        rowsInView: Math.floor(grid.height / grid.cellHeight)
        onMenuRequested: area.openMenuByKey()
    }

    GridView {
        id: grid

        // Each cell carries half of the gaps around its card.
        x: Style.inset - area.columnGap / 2
        width: parent.width - 2 * x
        anchors.top: parent.top
        anchors.bottom: limit.visible ? limit.top : parent.bottom
        topMargin: Style.inset - area.rowGap / 2
        bottomMargin: topMargin
        cellWidth: Math.floor(width / area.columns)
        cellHeight: 242 + area.rowGap
        model: area.items
        focus: true
        activeFocusOnTab: true
        clip: true
        reuseItems: true
        cacheBuffer: cellHeight * 2
        boundsBehavior: Flickable.StopAtBounds
        // The highlight is the model's, not the view's.
        keyNavigationEnabled: false
        currentIndex: -1
        ScrollBar.vertical: ThinScrollBar {
            atWindowEdge: true
            parent: area
            x: mirrored ? 0 : area.width - width
            height: grid.height
            onPressedChanged: if (!pressed)
                grid.settle()
        }

        Accessible.role: Accessible.List
        Accessible.name: area.shell.headerTitle

        Keys.forwardTo: [keys]

        function settle() {
            area.view.settledOn(indexAt(LayoutMirroring.enabled ? width - cellWidth / 2 : cellWidth / 2, contentY + height / 2));
        }

        // On the grid, not on its cards: the first click of two moves the cards under the pointer.
        TapHandler {
            property int row: -1

            onSingleTapped: eventPoint => {
                grid.forceActiveFocus(Qt.MouseFocusReason);
                row = grid.indexAt(eventPoint.position.x, eventPoint.position.y);
                area.view.choose(row);
            }
            onDoubleTapped: if (row >= 0)
                area.shell.activateSelection()
        }

        Component.onCompleted: area.view.restorePosition()
        onMovementEnded: settle()
        onHeightChanged: area.view.restorePosition()

        Connections {
            target: area.view

            function onCenterRequested(row: int) {
                grid.forceLayout();
                if (row >= 0)
                    grid.positionViewAtIndex(row, GridView.Center);
                else
                    grid.contentY = grid.originY - grid.topMargin;
            }
        }

        delegate: Item {
            id: cell

            required property int index
            required property string name
            required property url artwork
            required property string kindSymbol
            required property bool isSelected
            required property bool isFavorite

            width: grid.cellWidth
            height: grid.cellHeight

            GridView.onPooled: poster.inUse = false
            GridView.onReused: poster.inUse = true

            PosterCard {
                id: poster
                x: area.columnGap / 2
                y: area.rowGap / 2
                width: cell.width - area.columnGap
                index: cell.index
                count: grid.count
                name: cell.name
                artwork: cell.artwork
                kindSymbol: cell.kindSymbol
                isSelected: cell.isSelected
                isFavorite: cell.isFavorite
                store: area.artwork
                focused: grid.activeFocus && area.view.keyRow === cell.index
                onChosen: row => area.view.choose(row)
                onMenuRequested: (row, place) => area.openMenu(row, poster, place.x, place.y)
            }
        }
    }

    StyledText {
        id: limit
        anchors.bottom: parent.bottom
        width: parent.width
        visible: text !== ""
        leftPadding: Style.inset
        rightPadding: Style.inset
        topPadding: 8
        bottomPadding: 8
        text: area.view.limitNote
        font: Style.caption
        elide: Text.ElideRight
    }

    EntryMenuLoader {
        id: menu
        items: area.items

        sourceComponent: EntryMenu {
            narrowest: begun ? 250 : 220
            shell: area.shell
            playText: qsTr("Play")
            onClosed: Keyboard.give(grid)
        }
    }
}
