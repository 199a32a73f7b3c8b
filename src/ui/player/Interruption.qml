import QtQuick
import Vantor.Style
import Vantor.Ui

// The strip of a source that is on its way back, while it is.
OnDemand {
    id: interruption

    required property PlayerPane player
    property bool placed: true

    width: parent.width
    visible: wanted
    wanted: placed && player.interruption !== ""

    sourceComponent: InterruptionStrip {
        text: interruption.player.interruption
        onEndChosen: interruption.player.giveUp()
    }
}
