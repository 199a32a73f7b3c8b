import QtQuick
import QtQuick.Controls.Basic

// A menu that is made when it is first opened.
Loader {
    readonly property Menu menu: item as Menu

    active: false

    function made(): Menu {
        active = true;
        return menu;
    }

    function toggle() {
        if (made().visible)
            menu.close();
        else
            menu.open();
    }
}
