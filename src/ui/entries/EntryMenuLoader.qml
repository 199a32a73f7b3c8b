import QtQuick
import Vantor.Ui

// The menu of an entry of a list. It goes when the list changes: its row is another entry's then.
MenuLoader {
    id: loader

    required property ItemListModel items

    Connections {
        target: loader.items

        function onModelReset() {
            loader.active = false;
        }
    }
}
