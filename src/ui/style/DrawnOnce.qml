import QtQuick
import Vantor.Style

// Keeps what its parent looks like while pictures move beside it, so that each of them does not draw
// it anew.
Item {
    id: once

    required property bool wanted
    // Where these are no whole numbers, the pixels kept would not be those of the window.
    readonly property real pixels: Style.zoom * Screen.devicePixelRatio
    // Their number when they were last kept; a screen of another scale needs others.
    property real kept: 0
    readonly property QtObject drawing: parent?.layer ?? null

    onPixelsChanged: Qt.callLater(() => once.kept = once.pixels)
    Component.onCompleted: kept = pixels

    Binding {
        target: once.drawing
        property: "enabled"
        value: once.wanted && Number.isInteger(once.pixels) && once.kept === once.pixels
    }

    Binding {
        target: once.drawing
        property: "textureSize"
        value: Qt.size(once.parent.width * Style.zoom, once.parent.height * Style.zoom)
    }

    Binding {
        target: once.drawing
        property: "smooth"
        value: false
    }
}
