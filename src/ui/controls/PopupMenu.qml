import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

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
    // Where an entry stands among those that are shown.
    function placeOf(entry: Item): string {
        let place = -1;
        let shown = 0;
        for (let i = 0; i < count; ++i) {
            if (itemAt(i) === entry)
                place = shown;
            if (itemAt(i).visible)
                ++shown;
        }
        return Assistive.place(place, shown);
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
