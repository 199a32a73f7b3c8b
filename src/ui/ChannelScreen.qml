import QtQuick
import Vantor.Style
import Vantor.Ui

// The content of a section: its categories, its entries, and the player beside them.
FocusScope {
    id: browser

    required property Views views
    required property PersistentVideoOverlay overlay

    CategoryRail {
        id: rail
        height: parent.height
        width: visible ? 178 : 0
        visible: browser.views.categories.offered
        categories: browser.views.categories
    }

    Item {
        id: column
        anchors.left: rail.right
        anchors.right: side.left
        anchors.rightMargin: 14
        height: parent.height

        StatusStrip {
            id: status
            width: parent.width
            line: browser.views.statusLine
        }

        ItemList {
            anchors.top: status.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            focus: true
            items: browser.views.items
            shell: browser.views.shell
        }

        EmptyStateCard {
            anchors.centerIn: parent
            emptyState: browser.views.emptyState
            onConnectChosen: browser.views.shell.connectProvider()
        }
    }

    Item {
        id: side
        anchors.right: parent.right
        anchors.rightMargin: Style.inset
        width: 355
        height: parent.height

        PlayerPanel {
            id: player
            width: parent.width
            player: browser.views.player
            transport: browser.views.transport
            overlay: browser.overlay
        }

        StyledText {
            anchors.top: player.bottom
            anchors.topMargin: 18
            width: parent.width
            text: browser.views.shell.selectedName
            font: Style.font(29, Font.DemiBold)
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
        }
    }
}
