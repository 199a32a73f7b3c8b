import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

ApplicationWindow {
    id: window

    required property Views views
    // Whether the first frame is on the screen; what it can do without comes after it.
    property bool appeared: false

    title: "Vantor Player"
    width: Math.min(1320, Math.max(minimumWidth, Screen.desktopAvailableWidth))
    height: Math.min(820, Math.max(minimumHeight, Screen.desktopAvailableHeight))
    minimumWidth: 1100
    minimumHeight: 720
    visible: true
    // The window draws its own frame.
    flags: Qt.Window | Qt.FramelessWindowHint
    color: Style.canvas
    font: Style.body

    palette.window: Style.canvas
    palette.windowText: Style.focusWhite
    palette.text: Style.focusWhite
    palette.base: Style.panelColor
    palette.toolTipBase: Style.panelColor
    palette.toolTipText: Style.focusWhite
    palette.highlight: Style.mint
    palette.highlightedText: Style.canvas

    Connections {
        target: window
        enabled: !window.appeared

        function onFrameSwapped() {
            window.appeared = true;
        }
    }

    WindowActions {
        id: actions
        window: window
    }

    ShellScreen {
        objectName: "shell"
        anchors.fill: parent
        focus: true
        views: window.views
        window: actions
        appeared: window.appeared
    }

    WindowFrame {
        anchors.fill: parent
        window: actions
        resizable: window.appeared
    }

    Loader {
        active: window.appeared

        sourceComponent: CommandShortcuts {
            commands: window.views.menu
        }
    }

    // The dialogs of the toolkit are loaded when the first one is wanted.
    Loader {
        id: fileDialog
    }

    Connections {
        target: window.views.filePanel

        function onRequested() {
            if (fileDialog.status === Loader.Null)
                fileDialog.setSource("MediaFileDialog.qml", { panel: window.views.filePanel });
        }
    }

    // So are the sheets.
    component SheetLoader: Loader {
        required property string file
        required property bool wanted

        function load() {
            if (wanted && status === Loader.Null)
                setSource(file, { views: window.views });
        }

        onWantedChanged: load()
        Component.onCompleted: load()
    }

    SheetLoader {
        wanted: window.views.shell.showingConnect
        file: "ConnectSheet.qml"
    }

    SheetLoader {
        wanted: window.views.shell.showingSettings
        file: "SettingsSheet.qml"
    }
}
