import QtQuick
import Vantor.Style

// Keeps what its parent looks like while pictures move beside it, so that each of them does not draw
// it anew.
Item {
    id: once

    required property bool wanted
    // Where these are no whole numbers, the pixels kept would not be those of the window.
    readonly property real pixels: Style.zoom * Screen.devicePixelRatio
    readonly property QtObject drawing: parent?.layer ?? null
    property bool renewing: false

    onPixelsChanged: {
        // What is kept would be enlarged on a screen of another scale.
        once.renewing = true;
        once.renewing = false;
    }

    Binding {
        target: once.drawing
        property: "enabled"
        value: once.wanted && Number.isInteger(once.pixels) && !once.renewing
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
