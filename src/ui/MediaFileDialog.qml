import QtQuick
import QtQuick.Dialogs
import Vantor.Ui

// The desktop's own panel where it has one.
FileDialog {
    id: dialog

    required property DialogFilePanel panel

    title: "Open a media file"
    fileMode: FileDialog.OpenFile
    nameFilters: ["Movies and audio (*.mkv *.mp4 *.m4v *.mov *.avi *.webm *.ts *.m2ts *.mpg *.mpeg *.wmv *.flv *.ogv *.3gp *.mp3 *.m4a *.aac *.flac *.ogg *.opus *.wav *.wma *.ac3 *.mka)"]
    onAccepted: panel.choose(selectedFile)
    onRejected: panel.cancel()
    Component.onCompleted: open()

    readonly property Connections requests: Connections {
        target: dialog.panel

        function onRequested() {
            dialog.open();
        }
    }
}
