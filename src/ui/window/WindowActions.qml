import QtQuick
import QtQuick.Window
import Vantor.Ui

// What the window's own frame does to it.
QtObject {
    id: actions

    required property Window window
    required property PlayerRemote remote
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

    // The window as it was before the picture filled the screen.
    property bool maximizedBefore: false

    readonly property Connections followsRemote: Connections {
        target: actions.remote

        function onFullScreenChanged() {
            if (actions.remote.fullScreen) {
                // What is bound to it learns of a change later than it is made.
                actions.maximizedBefore = actions.window.visibility === Window.Maximized;
                actions.window.showFullScreen();
            } else if (actions.maximizedBefore) {
                actions.window.showMaximized();
            } else {
                actions.window.showNormal();
            }
        }
    }

    // On its way into it the window may change otherwise: a small one is what it was first.
    property bool filled: false

    // The desktop has its own ways out of it.
    readonly property Connections followsWindow: Connections {
        target: actions.window

        function onVisibilityChanged() {
            const visibility = actions.window.visibility;
            if (visibility === Window.FullScreen) {
                actions.filled = true;
            } else if (actions.filled && (visibility === Window.Windowed || visibility === Window.Maximized)) {
                actions.filled = false;
                actions.remote.fullScreen = false;
            }
        }
    }

    function close() {
        window.close();
    }
}
