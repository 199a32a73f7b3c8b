import QtQuick
import Vantor.Style

// Keeps what its parent looks like while pictures move beside it, so that each of them does not draw
// it anew.
Item {
    id: once

    required property bool wanted
    // Where these are no whole numbers, the pixels kept would not be those of the window.
    readonly property real pixels: Style.zoom * Screen.devicePixelRatio

    Binding {
        target: once.parent?.layer ?? null
        property: "enabled"
        value: once.wanted && Number.isInteger(once.pixels)
    }

    Binding {
        target: once.parent?.layer ?? null
        property: "textureSize"
        value: Qt.size(once.parent.width * Style.zoom, once.parent.height * Style.zoom)
    }

    Binding {
        target: once.parent?.layer ?? null
        property: "smooth"
        value: false
    }
}
