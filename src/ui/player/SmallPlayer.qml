import QtQuick
import Vantor.Style
import Vantor.Ui

// What lies over the picture in the small window. Nothing in it has the focus at first, so that the
// keys reach the player.
FocusScope {
    id: screen
    focus: true

    required property PlayerPane player
    required property PlayerRemote remote
    required property WindowActions window
    // The width that the buttons have while they are shown.
    readonly property real taken: buttons.visible ? buttons.width + 2 * Style.gap : 0

    Rectangle {
        anchors.fill: parent
        color: "black"
        visible: !screen.player.surfaceVisible
    }

    WindowDrag {
        anchors.fill: parent
        window: screen.window
        maximizes: false
        hoverEnabled: true
        onPositionChanged: screen.remote.moved()
        onClicked: screen.player.tapPicture()
        onDoubleClicked: {
            // The first of the two clicks was no order to pause.
            screen.player.tapPicture();
            screen.remote.small = false;
        }
        onWheel: wheel => screen.remote.changeVolume(wheel.angleDelta.y / 24)
    }

    PictureCover {
        anchors.fill: parent
        player: screen.player
    }

    Interruption {
        anchors.bottom: parent.bottom
        player: screen.player
    }

    Rectangle {
        id: buttons
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Style.gap
        width: row.width
        height: row.height
        radius: Style.radius
        color: Style.faded("black", 0.7)
        visible: screen.remote.controlsShown || row.activeFocus

        HoverHandler {
            // The point is told also while the pointer lies still.
            readonly property point place: point.scenePosition
            onPlaceChanged: screen.remote.moved()
        }

        Binding {
            target: screen.remote
            property: "busy"
            value: row.activeFocus || pressed.active
        }

        FocusScope {
            id: row
            width: controls.width
            height: controls.height
            // The keys are the player's again.
            Keys.onEscapePressed: focus = false

            Row {
                id: controls

                IconButton {
                    symbol: screen.player.playPauseSymbol
                    help: qsTr("Play / pause")
                    Accessible.description: screen.player.stateName
                    onClicked: screen.player.togglePause()
                }

                IconButton {
                    symbol: "window.restore"
                    help: qsTr("Back to the window")
                    size: 16
                    onClicked: screen.remote.small = false
                }

                IconButton {
                    symbol: "stop.fill"
                    help: qsTr("Stop playback")
                    onClicked: screen.player.stop()
                }
            }
        }

        // Above them, since they keep a press to themselves. What was clicked must not go at once.
        Item {
            anchors.fill: parent

            PointHandler {
                id: pressed
            }
        }
    }

    Component.onDestruction: remote.busy = false
}
