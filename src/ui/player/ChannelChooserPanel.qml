import QtQuick
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

        Row {
            id: heading
            x: Style.inset
            y: 8
            width: parent.width - 2 * Style.inset

            // Beside each other, so that no name moves one away from under the pointer. The keys are
            // the list's.
            component GroupButton: IconButton {
                required property int by
                symbol: (by > 0) === mirrored ? "chevron.left" : "chevron.right"
                color: Style.mint
                focusPolicy: Qt.NoFocus
                onClicked: panel.chooser.changeGroup(by)
            }

            GroupButton {
                id: before
                by: -1
                help: qsTr("Previous group")
            }

            GroupButton {
                id: after
                by: 1
                help: qsTr("Next group")
            }

            StyledText {
                anchors.verticalCenter: parent.verticalCenter
                leftPadding: Style.gap
                rightPadding: Style.gap
                width: parent.width - before.width - after.width
                text: panel.chooser.group
                font: Style.font(17, Font.DemiBold)
                color: Style.mint
                elide: Text.ElideRight
                Accessible.role: Accessible.Heading
            }
        }

        ChannelList {
            id: list
            anchors.top: heading.bottom
            anchors.topMargin: 8
            anchors.bottom: parent.bottom
            x: Style.inset - leftMargin
            width: parent.width - 2 * Style.inset + leftMargin + rightMargin
            model: panel.chooser.rows
            artwork: panel.artwork
            currentRow: panel.chooser.currentRow
            focused: true
            Accessible.name: panel.chooser.group
            onRowsShown: (first, last) => panel.chooser.showRows(first, last)
            onOpened: row => panel.chooser.choose(row)

            Connections {
                target: panel.chooser.rows

                function onModelReset() {
                    list.centerCurrent();
                }
            }

            TapHandler {
                onTapped: eventPoint => panel.chooser.choose(list.indexAt(eventPoint.position.x, eventPoint.position.y))
            }
        }

        StyledText {
            anchors.centerIn: list
            visible: list.count === 0
            text: qsTr("No channels in this group")
            font: Style.title2
            color: Style.secondary
        }
    }
}
