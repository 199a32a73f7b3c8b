import QtQuick
import Vantor.Ui

// A place by which the window is dragged.
MouseArea {
    required property WindowActions window
    property bool maximizes: true  // by a double click
    property point start

    onPressed: mouse => start = Qt.point(mouse.x, mouse.y)
    onPositionChanged: mouse => {
        if (!pressed || Math.hypot(mouse.x - start.x, mouse.y - start.y) < Application.styleHints.startDragDistance)
            return;
        release();
        window.move();
    }
    onDoubleClicked: if (maximizes)
        window.toggleMaximized()

    // The window manager takes the pointer, and the button's release with it.
    function release() {
        enabled = false;
        enabled = true;
    }
}
