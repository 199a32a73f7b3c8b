import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

// The list of channels over the picture. The keys come to it through the player.
Rectangle {
    id: panel

    required property ChannelChooser chooser
    required property ArtworkStore artwork
    // From far away the rows of the guide are too small.
    readonly property real zoom: Math.max(1, height / 580)

    color: Style.faded("black", 0.82)

    HoverHandler {
        cursorShape: Qt.ArrowCursor
    }

    // What is under it gets nothing of the pointer.
    MouseArea {
        anchors.fill: parent
        onWheel: wheel => wheel.accepted = true
    }

    Item {
        width: panel.width / panel.zoom
        height: panel.height / panel.zoom
        scale: panel.zoom
        transformOrigin: Item.TopLeft

        StyledText {
            id: heading
            x: Style.inset
            y: 14
            width: parent.width - 2 * Style.inset
            text: "‹   " + panel.chooser.group + "   ›"
            font: Style.font(17, Font.DemiBold)
            color: Style.mint
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
            Accessible.name: panel.chooser.group
        }

        ListView {
            id: list

            readonly property int rowHeight: 44
            readonly property int firstRow: Math.floor((contentY - originY) / (rowHeight + spacing))
            readonly property int lastRow: Math.floor((contentY + height - originY) / (rowHeight + spacing))

            anchors.top: heading.bottom
            anchors.topMargin: 8
            anchors.bottom: parent.bottom
            x: Style.inset - leftMargin
            width: parent.width - 2 * Style.inset + leftMargin + rightMargin
            model: panel.chooser.rows
            topMargin: 4
            bottomMargin: 12
            leftMargin: 4
            rightMargin: 10
            spacing: 6
            clip: true
            reuseItems: true
            boundsBehavior: Flickable.StopAtBounds
            keyNavigationEnabled: false
            currentIndex: -1
            ScrollBar.vertical: ThinScrollBar {}

            Accessible.role: Accessible.List
            Accessible.name: panel.chooser.group

            function centerSelection() {
                if (panel.chooser.currentRow < 0)
                    return;
                positionViewAtIndex(panel.chooser.currentRow, ListView.Center);
                Assistive.highlight(itemAtIndex(panel.chooser.currentRow));
            }

            function reportRows() {
                panel.chooser.showRows(firstRow, lastRow);
            }

            Component.onCompleted: {
                centerSelection();
                reportRows();
            }
            onHeightChanged: centerSelection()
            onFirstRowChanged: reportRows()
            onLastRowChanged: reportRows()

            Connections {
                target: panel.chooser

                function onCurrentRowChanged() {
                    list.centerSelection();
                }
            }

            Connections {
                target: panel.chooser.rows

                function onModelReset() {
                    list.centerSelection();
                }
            }

            TapHandler {
                onTapped: eventPoint => panel.chooser.choose(list.indexAt(eventPoint.position.x, eventPoint.position.y))
            }

            delegate: GuideRow {
                width: list.width - list.leftMargin - list.rightMargin
                height: list.rowHeight
                focused: true
                artworkStore: panel.artwork
                onOpened: row => panel.chooser.choose(row)
            }
        }

        StyledText {
            anchors.centerIn: list
            visible: list.count === 0
            text: "No channels in this group"
            font: Style.title2
            color: Style.secondary
        }
    }
}
