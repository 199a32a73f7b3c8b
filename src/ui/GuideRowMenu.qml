import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

Menu {
    id: menu

    required property TVShell shell
    property int row: -1
    property string bookmarkSymbol: "bookmark"

    width: 250
    padding: 6
    margins: 8

    background: Rectangle {
        radius: 8
        color: Style.panelColor
        border.color: Style.hairline
    }

    function openAt(item: GuideRow, x: real, y: real) {
        row = item.index;
        bookmarkSymbol = item.bookmarkSymbol;
        popup(item, x, y);
        currentIndex = 0;
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
