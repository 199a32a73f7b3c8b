import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Vantor.Style
import Vantor.Ui

ApplicationWindow {
    id: window

    required property Views views
    // Whether the first frame is on the screen; what it can do without comes after it.
    property bool appeared: false
    // The content is never smaller than this; a desktop that makes the window smaller sees it reduced.
    readonly property size smallest: Qt.size(1100, 720)

    title: "Vantor Player"
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true
    width: 1320
    height: 820
    minimumWidth: smallest.width
    minimumHeight: smallest.height
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
    // What is chosen in the toolkit's own file dialog lies on a shade of the one, written in the other.
    palette.highlight: Style.mint
    palette.highlightedText: Style.focusWhite
    // The toolkit's own file dialog paints with the rest of the palette.
    palette.light: Style.panelColor
    palette.midlight: Style.hairline
    palette.mid: Style.hairline
    palette.dark: Style.hairline
    palette.button: Style.canvas
    palette.buttonText: Style.focusWhite
    palette.brightText: Style.focusWhite
    palette.alternateBase: Style.canvas
    palette.placeholderText: Style.secondary

    Connections {
        target: window
        enabled: !window.appeared

        function onFrameSwapped() {
            window.appeared = true;
            // There is one for all, outside the content too.
            const tip = shell.ToolTip.toolTip;
            tip.transformOrigin = Popup.TopLeft;
            tip.scale = Qt.binding(() => Style.zoom);
        }
    }

    WindowActions {
        id: actions
        window: window
        remote: window.views.remote
    }

    // What opens outside the content, and so outside its size.
    Binding {
        target: Style
        property: "zoom"
        value: shell.scale * shell.distantZoom
    }

    ShellScreen {
        id: shell
        objectName: "shell"
        width: window.width / scale
        height: window.height / scale
        // The picture alone has room in the smallest window.
        scale: window.views.remote.pictureOnly ? 1 : Math.min(Style.textScale, window.width / window.smallest.width, window.height / window.smallest.height)
        transformOrigin: Item.TopLeft
        focus: true
        views: window.views
        window: actions
    }

    WindowFrame {
        parent: T.Overlay.overlay?.parent ?? null
        z: (T.Overlay.overlay?.z ?? 0) + 1
        anchors.fill: parent
        window: actions
        resizable: window.appeared
        sheetOpen: window.views.connectView.shown || window.views.settingsView.shown
    }

    Loader {
        active: window.appeared

        sourceComponent: CommandShortcuts {
            commands: window.views.commands
        }
    }

    readonly property CommandShortcuts shortcutsAnywhere: CommandShortcuts {
        active: window.appeared
        commands: window.views.commands
        anywhere: true
    }

    // The dialogs of the toolkit are loaded when the first one is wanted.
    Loader {
        id: fileDialog
    }

    Connections {
        target: window.views.filePanel

        function onRequested() {
            if (!fileDialog.item)
                fileDialog.setSource("MediaFileDialog.qml", {
                    panel: window.views.filePanel
                });
            // Whoever asked for a file would wait for ever.
            if (fileDialog.status === Loader.Error)
                window.views.filePanel.cancel();
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
        wanted: window.views.connectView.shown
        file: "ConnectSheet.qml"
    }

    SheetLoader {
        wanted: window.views.settingsView.shown
        file: "SettingsSheet.qml"
    }
}
