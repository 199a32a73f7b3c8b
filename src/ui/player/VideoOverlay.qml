import QtQuick
import Vantor.Style
import Vantor.Ui

// The engine's picture, laid over the video area of the player panel.
PersistentVideoOverlay {
    id: overlay

    required property PlayerPane player
    required property VideoFrameQueue frames
    required property PlayerRemote remote

    Item {
        anchors.fill: parent
        opacity: overlay.placed && overlay.player.surfaceVisible ? 1 : 0

        Rectangle {
            anchors.fill: parent
            color: "black"
        }

        VideoSurface {
            anchors.fill: parent
            frames: overlay.frames
            shape: overlay.remote.pictureShape
            Accessible.role: Accessible.Graphic
            Accessible.name: qsTr("Video")
            Accessible.ignored: parent.opacity === 0
        }

        // The picture has square corners, the area under it round ones.
        RoundedFrame {
            visible: !overlay.filling
            innerRadius: 4
        }
    }

    OnDemand {
        width: parent.width
        y: parent.height - 38 - height / 2
        visible: wanted
        wanted: overlay.placed && overlay.player.loading && !overlay.player.holdingFrame

        sourceComponent: LoadingStrip {
            text: overlay.player.openingText
        }
    }

    Interruption {
        y: parent.height - height
        player: overlay.player
        placed: overlay.placed && !overlay.filling
    }
}
