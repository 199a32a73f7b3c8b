import QtQuick
import QtQuick.Templates as T
import Vantor.Style
import Vantor.Ui

// What lies over the picture that fills the screen. Nothing in it has the focus at first, so that
// the keys reach the player.
FocusScope {
    id: screen
    focus: true

    required property PlayerPane player
    required property PlayerRemote remote
    required property TransportControls transport
    // Of the controls.
    required property real zoom
    readonly property int distantText: Style.distantSize(height)

    Binding {
        target: screen.remote
        property: "busy"
        // What a button is called lies over the window as a menu does, without the keys.
        value: controls.activeFocus || pressed.active || !screen.activeFocus && screen.Window.active && T.Overlay.overlay?.visible === true
    }
    Component.onDestruction: remote.busy = false

    Rectangle {
        anchors.fill: parent
        color: "black"
        visible: !screen.player.surfaceVisible
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: screen.remote.controlsShown ? Qt.ArrowCursor : Qt.BlankCursor
        onPositionChanged: screen.remote.moved()
        // Whether the last click was meant for the picture, and not for the list that lay over it.
        property bool tapped: false
        onClicked: {
            tapped = !screen.remote.chooser;
            if (tapped)
                screen.player.tapPicture();
            else
                screen.remote.putChooserAway();
        }
        onDoubleClicked: {
            // The first of the two clicks was no order to pause.
            if (tapped)
                screen.player.tapPicture();
            screen.remote.toggleFullScreen();
        }
        onWheel: wheel => screen.remote.changeVolume(wheel.angleDelta.y / 24)
    }

    PictureCover {
        anchors.fill: parent
        player: screen.player
        widestCard: 560
    }

    Rectangle {
        anchors.bottom: parent.bottom
        width: parent.width
        height: controls.height * screen.zoom + 2 * Style.inset + 60
        visible: screen.remote.controlsShown
        gradient: Gradient {
            GradientStop { position: 0; color: "transparent" }
            GradientStop { position: 0.3; color: Style.faded("black", 0.65) }
            GradientStop { position: 1; color: Style.faded("black", 0.9) }
        }

        HoverHandler {
            // The point is told also while the pointer lies still.
            readonly property point place: point.scenePosition
            onPlaceChanged: screen.remote.moved()
        }

        FocusScope {
            id: controls
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Style.inset
            x: Style.inset
            width: (parent.width - 2 * Style.inset) / screen.zoom
            height: rows.height
            scale: screen.zoom
            transformOrigin: Item.BottomLeft
            // The keys are the player's again.
            Keys.onEscapePressed: focus = false

            Column {
                id: rows
                width: parent.width

                PlayerBar {
                    width: parent.width
                    player: screen.player
                    remote: screen.remote
                    titleFont: Style.font(screen.distantText / screen.zoom, Font.DemiBold)
                }

                TransportBar {
                    width: parent.width
                    transport: screen.transport
                }
            }
        }

        // Above them, since they keep a press to themselves. What is held must not go, nor what was
        // clicked at once.
        Item {
            anchors.fill: parent

            PointHandler {
                id: pressed
            }
        }
    }
}
