import QtQuick
import Vantor.Ui

// A place by which the window is dragged.
Item {
    id: handle

    required property WindowActions window

    DragHandler {
        target: null
        onActiveChanged: if (active)
            handle.window.move()
    }

    TapHandler {
        onDoubleTapped: handle.window.toggleMaximized()
    }
}
