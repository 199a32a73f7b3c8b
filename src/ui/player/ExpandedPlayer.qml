import QtQuick
import Vantor.Style
import Vantor.Ui

// Nothing in it has the focus at first, so that Space pauses.
FocusScope {
    id: screen

    required property Views views
    required property PersistentVideoOverlay overlay

    PlayerArea {
        anchors.fill: parent
        anchors.leftMargin: Style.inset
        anchors.rightMargin: Style.inset
        anchors.bottomMargin: buttons.height + 10
        fill: true
        player: screen.views.player
        remote: screen.views.remote
        transport: screen.views.transport
        overlay: screen.overlay
    }

    Row {
        id: buttons
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.leftMargin: Style.inset
        spacing: Style.gap

        TVButton {
            text: qsTr("Back to browsing")
            onClicked: screen.views.shell.backToBrowsing()
        }

        TVButton {
            text: qsTr("Start over")
            onClicked: screen.views.shell.startOver()
        }
    }
}
