import QtQuick
import QtQuick.Dialogs
import Vantor.Style
import Vantor.Ui

// The desktop's own panel where it has one.
FileDialog {
    id: dialog

    required property DialogFilePanel panel

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
            panel.darkenPath(Style.canvas);
        else
            panel.cancel();
    }

    readonly property Connections requests: Connections {
        target: dialog.panel

        function onRequested() {
            dialog.show();
        }
    }
}
