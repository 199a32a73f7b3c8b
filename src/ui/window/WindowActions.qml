import QtQuick
import QtQuick.Window
import Vantor.Ui

// What the window's own frame does to it.
QtObject {
    required property Window window
    readonly property bool maximized: window.visibility === Window.Maximized || window.visibility === Window.FullScreen

    function move() {
        window.startSystemMove();
    }

    function resize(edges: int) {
        window.startSystemResize(edges);
    }

    function minimize() {
        window.showMinimized();
    }

    function toggleMaximized() {
        if (maximized)
            window.showNormal();
        else
            window.showMaximized();
    }

    function close() {
        window.close();
    }
}
