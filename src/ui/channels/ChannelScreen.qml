import QtQuick
import Vantor.Style
import Vantor.Ui

// The channel guide, and beside it the player with the highlighted channel's programme.
Browsable {
    id: screen

    required property Views views
    required property PersistentVideoOverlay overlay

    onBrowse: Keyboard.give(list)

    Item {
        id: guide
        anchors.left: parent.left
        anchors.leftMargin: Style.inset
        anchors.right: side.left
        anchors.rightMargin: 14
        height: parent.height

        GuideHeading {
            id: heading
            width: parent.width
            channels: screen.views.channels
            line: screen.views.statusView
            onGroupPointedAt: screen.browse()
        }

        GuideList {
            id: list
            anchors.top: heading.bottom
            anchors.bottom: parent.bottom
            // The rows stand under the heading; the focus ring and the scroll bar beside it.
            anchors.left: parent.left
            anchors.leftMargin: -startMargin
            anchors.right: parent.right
            anchors.rightMargin: -endMargin
            focus: true
            views: screen.views

            DrawnOnce {
                parent: list
                wanted: screen.views.player.surfaceVisible
            }
        }

        OnDemand {
            id: emptyState
            anchors.centerIn: parent
            wanted: screen.views.emptyState.shown

            sourceComponent: EmptyStateCard {
                emptyState: screen.views.emptyState
                onConnectChosen: screen.views.shell.connectProvider()
            }
        }
    }

    Item {
        id: side
        anchors.right: parent.right
        anchors.rightMargin: Style.inset
        width: 355
        height: parent.height

        PlayerArea {
            id: player
            y: 6
            width: parent.width
            player: screen.views.player
            remote: screen.views.remote
            transport: screen.views.transport
            overlay: screen.overlay
        }

        ProgrammePanel {
            anchors.top: player.bottom
            anchors.topMargin: 18
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 14
            width: parent.width
            channels: screen.views.channels
        }
    }
}
