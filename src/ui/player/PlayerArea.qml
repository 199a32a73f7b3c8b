import QtQuick
import Vantor.Style
import Vantor.Ui

Item {
    id: panel

    required property PlayerPane player
    required property PlayerRemote remote
    required property TransportControls transport
    required property PersistentVideoOverlay overlay
    // Whether the area takes all the height there is, instead of what its width asks for.
    property bool fill: false

    implicitHeight: area.height + below.height

    Rectangle {
        id: area
        anchors.horizontalCenter: parent.horizontalCenter
        width: panel.fill ? Math.max(0, Math.min(panel.width, (panel.height - below.height) * 16 / 9)) : panel.width
        height: width * 9 / 16
        radius: 4
        color: "black"

        Component.onCompleted: panel.overlay.area = area

        MouseArea {
            anchors.fill: parent
            onClicked: panel.remote.putChooserAway()
            onDoubleClicked: panel.remote.toggleFullScreen()
        }

        Column {
            anchors.centerIn: parent
            visible: panel.player.idle
            spacing: 12
            opacity: 0.7

            Icon {
                anchors.horizontalCenter: parent.horizontalCenter
                symbol: "play.rectangle"
                size: 34
                color: "white"
            }

            StyledText {
                text: panel.player.placeholder
                font: Style.headline
                color: "white"
            }
        }

        PictureCover {
            anchors.fill: parent
            player: panel.player
        }

        RoundedFrame {
            innerRadius: area.radius
            visible: panel.player.holdingFrame
        }
    }

    OnDemand {
        id: below
        anchors.top: area.bottom
        width: panel.width
        visible: !panel.player.idle
        height: visible ? implicitHeight : 0
        wanted: !panel.player.idle

        sourceComponent: Column {
            PlayerBar {
                width: parent.width
                player: panel.player
                remote: panel.remote
            }

            TransportBar {
                width: parent.width
                transport: panel.transport
            }
        }
    }
}
