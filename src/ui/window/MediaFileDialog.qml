import QtQuick
import QtQuick.Dialogs
import Vantor.Style
import Vantor.Ui

// The desktop's own panel where it has one.
FileDialog {
    id: dialog

    required property DialogFilePanel panel
    // Everything in the window, also the toolkit's own panel.
    required property Item root

    title: qsTr("Open a media file")
    fileMode: FileDialog.OpenFile
    nameFilters: panel.nameFilters
    onAccepted: panel.choose(selectedFile)
    onRejected: panel.cancel()
    Component.onCompleted: show()

    function show() {
        open();
        // Neither the desktop nor the toolkit has one.
        if (visible)
            darkenPath(root);
        else
            panel.cancel();
    }

    // The toolkit paints it white, whatever the palette is, with the palette's light text on it.
    function darkenPath(item) {
        if (item.upButton)
            item.background.color = Style.canvas;
        for (let i = 0; i < item.children.length; ++i)
            darkenPath(item.children[i]);
    }

    readonly property Connections requests: Connections {
        target: dialog.panel

        function onRequested() {
            dialog.show();
        }
    }
}
