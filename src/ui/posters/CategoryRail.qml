import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: rail

    required property CategoryListModel categories

    color: Style.faded(Style.panelColor, 0.22)

    ListView {
        id: list

        anchors.fill: parent
        leftMargin: 12
        rightMargin: 12
        topMargin: 12
        bottomMargin: 12
        spacing: 5
        clip: true
        reuseItems: true
        cacheBuffer: 0
        boundsBehavior: Flickable.StopAtBounds
        activeFocusOnTab: true
        keyNavigationEnabled: false
        currentIndex: -1
        model: rail.categories
        ScrollBar.vertical: ThinScrollBar {}
        Accessible.role: Accessible.List
        Accessible.name: qsTr("CATEGORIES")

        // The category that the keys stand on.
        property int keyRow: rail.categories.currentRow

        function moveTo(row: int) {
            const target = Math.max(0, Math.min(row, count - 1));
            positionViewAtIndex(target, ListView.Contain);
            keyRow = target;
        }

        // When it has its size, and the rows of a section that was just entered.
        Timer {
            id: settling
            interval: 0
            running: true
            onTriggered: if (!list.activeFocus)
                list.positionViewAtIndex(rail.categories.currentRow, ListView.Contain)
        }

        Connections {
            target: rail.categories

            function onModelReset() {
                settling.restart();
            }
        }

        onActiveFocusChanged: if (activeFocus) {
            moveTo(rail.categories.currentRow);
            tell();
        }
        onKeyRowChanged: tell()

        // The keys stay on the category that they stand on.
        Connections {
            target: list.activeFocus ? rail.categories : null

            function onRowsInserted(parent: var, first: int, last: int) {
                if (list.keyRow >= first)
                    list.moveTo(list.keyRow + 1);
            }
            function onRowsRemoved(parent: var, first: int, last: int) {
                if (list.keyRow >= first)
                    list.moveTo(list.keyRow - 1);
            }
            function onModelReset() {
                list.moveTo(list.keyRow);
            }
        }

        function tell() {
            if (activeFocus)
                Assistive.highlight(itemAtIndex(keyRow));
        }
        Keys.onUpPressed: moveTo(keyRow - 1)
        Keys.onDownPressed: moveTo(keyRow + 1)
        Keys.onReturnPressed: rail.categories.choose(keyRow)
        Keys.onEnterPressed: rail.categories.choose(keyRow)
        Keys.onSpacePressed: rail.categories.choose(keyRow)

        header: Item {
            width: list.width - 24
            height: heading.implicitHeight + 5

            StyledText {
                id: heading
                anchors.left: parent.left
                text: qsTr("CATEGORIES")
                font: Style.font(10, Font.DemiBold)
                color: Style.mint
            }
        }

        delegate: TVButton {
            required property int index
            required property string categoryID
            required property string name

            width: list.width - 24
            text: name
            font: Style.font(13)
            // The program's own come first.
            shrinks: index < 2
            textAlignment: Text.AlignLeft
            focusPolicy: Qt.NoFocus
            selected: rail.categories.current === categoryID
            ringed: list.activeFocus && list.keyRow === index
            Accessible.description: Assistive.placeOfChoice(index, list.count, selected)
            Accessible.selectable: true
            Accessible.selected: selected
            Accessible.focusable: true
            Accessible.focused: ringed
            onClicked: {
                list.moveTo(index);
                rail.categories.choose(index);
            }
        }
    }
}
