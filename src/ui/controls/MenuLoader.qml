import QtQuick
import QtQuick.Controls.Basic

// A menu that is made when it is first opened.
Loader {
    readonly property Menu menu: item as Menu

    active: false

    function toggle() {
        active = true;
        if (menu.visible)
            menu.close();
        else
            menu.open();
    }
}
