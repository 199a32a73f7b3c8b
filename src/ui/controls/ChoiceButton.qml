import QtQuick
import QtQuick.Controls.Basic
import QtQml.Models
import Vantor.Style
import Vantor.Ui

// An icon that opens a short menu of named choices.
IconButton {
    id: button

    required property var choices
    // The index of the one that is in force; -1: none of them.
    property int current: -1
    property int menuWidth: 200

    signal chosen(var choice)

    implicitWidth: 32
    implicitHeight: 32
    size: 18
    Accessible.role: Accessible.ButtonMenu
    menuOpen: menu.menu?.visible ?? false
    onClicked: menu.toggle()

    MenuLoader {
        id: menu

        sourceComponent: PopupMenu {
            id: choiceMenu

            y: -height - 4
            x: button.mirrored ? 0 : button.width - width
            narrowest: button.menuWidth
            first: Math.max(0, button.current)

            Instantiator {
                model: button.choices
                onObjectAdded: (index, object) => choiceMenu.insertItem(index, object as MenuItem)
                onObjectRemoved: (index, object) => choiceMenu.removeItem(object as MenuItem)

                delegate: SymbolItem {
                    required property int index
                    required property var modelData

                    text: modelData.name
                    marked: index === button.current
                    choice: true
                    onTriggered: button.chosen(modelData)
                }
            }
        }
    }
}
