import QtQuick
import Vantor.Style
import Vantor.Ui

// What can be done with an entry of the list.
PopupMenu {
    id: menu

    required property TVShell shell
    required property string playText
    // Empty: without symbols.
    property string playSymbol: ""
    property string favoriteSymbol: ""
    property int row: -1
    property bool begun: false
    property bool favorite: false

    function openAt(index: int, item: Item, x: real, y: real) {
        row = index;
        begun = shell.isBegunRow(index);
        favorite = shell.isFavoriteRow(index);
        popup(item, x, y);
    }

    SymbolItem {
        text: menu.playText
        symbol: menu.playSymbol
        onTriggered: menu.shell.playRow(menu.row)
    }

    SymbolItem {
        text: qsTr("Add / remove from My list")
        symbol: menu.favoriteSymbol
        choice: true
        marked: menu.favorite
        onTriggered: menu.shell.favoriteRow(menu.row)
    }

    SymbolItem {
        visible: menu.begun
        height: visible ? implicitHeight : 0
        activeFocusOnTab: visible
        text: qsTr("Remove from Continue watching")
        onTriggered: menu.shell.stopContinuingRow(menu.row)
    }
}
