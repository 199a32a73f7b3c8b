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
                actions.maximizedBefore = actions.maximized;
                actions.window.showFullScreen();
            } else if (actions.maximizedBefore) {
                actions.window.showMaximized();
            } else {
                actions.window.showNormal();
            }
        }
    }

    // The desktop has its own ways out of it.
    readonly property Connections followsWindow: Connections {
        target: actions.window

        function onVisibilityChanged() {
            const visibility = actions.window.visibility;
            if (visibility === Window.Windowed || visibility === Window.Maximized)
                actions.remote.fullScreen = false;
        }
    }

    function close() {
        window.close();
    }
}
