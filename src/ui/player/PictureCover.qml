import QtQuick
import Vantor.Style
import Vantor.Ui

// What stands where the picture is not: the last one of the source before, what is being opened, and
// what failed.
Item {
    id: cover

    required property PlayerPane player
    property int widestCard: 400

    StillImage {
        anchors.fill: parent
        visible: cover.player.holdingFrame
        image: cover.player.heldFrame
    }

    OnDemand {
        anchors.bottom: parent.bottom
        width: parent.width
        visible: wanted
        wanted: cover.player.loading && cover.player.holdingFrame

        sourceComponent: LoadingStrip {
            text: cover.player.openingText
        }
    }

    OnDemand {
        anchors.centerIn: parent
        width: Math.min(cover.widestCard, parent.width - 16)
        wanted: cover.player.message !== ""

        sourceComponent: FailureCard {
            message: cover.player.message
            onRetryChosen: cover.player.retry()
            onCloseChosen: cover.player.stop()
        }
    }
}
