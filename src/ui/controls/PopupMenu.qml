import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style

// A menu one of whose entries is ready to be chosen by key.
Menu {
    id: menu

    // That entry.
    property int first: 0
    // It is as wide as its entries need, within these.
    property int narrowest: 200
    property int widest: 420

    width: {
        let needed = narrowest;
        for (let i = 0; i < count; ++i)
            needed = Math.max(needed, itemAt(i).implicitWidth + leftPadding + rightPadding);
        return Math.min(needed, widest);
    }
    padding: 6
    margins: 8
    scale: Style.zoom
    transformOrigin: Popup.TopLeft
    onOpened: currentIndex = first

    background: Rectangle {
        radius: 8
        color: Style.panelColor
        border.color: Style.hairline
    }
}
