import QtQuick
import Vantor.Style
import Vantor.Ui

PopupMenu {
    id: menu

    required property TVShell shell
    property int row: -1
    property string bookmarkSymbol: "bookmark"

    width: 250

    function openAt(item: GuideRow, x: real, y: real) {
        row = item.index;
        bookmarkSymbol = item.bookmarkSymbol;
        popup(item, x, y);
    }

    SymbolItem {
        text: "Watch channel"
        symbol: "play.fill"
        onTriggered: menu.shell.playRow(menu.row)
    }

    SymbolItem {
        text: "Add / remove from My list"
        symbol: menu.bookmarkSymbol
        onTriggered: menu.shell.favoriteRow(menu.row)
    }
}
