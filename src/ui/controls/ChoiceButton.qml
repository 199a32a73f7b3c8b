import QtQuick
import QtQuick.Controls.Basic
import QtQml.Models
import Vantor.Style
import Vantor.Ui

// An icon that opens a short menu of named choices.
IconButton {
    id: button

    required property var choices

    signal chosen(var choice)

    implicitHeight: 28
    size: 18
    Accessible.role: Accessible.ButtonMenu
    onClicked: menu.toggle()

    MenuLoader {
        id: menu

        sourceComponent: PopupMenu {
            id: choiceMenu

            y: -height - 4
            x: button.width - width
            width: 200

            Instantiator {
                model: button.choices
                onObjectAdded: (index, object) => choiceMenu.insertItem(index, object as MenuItem)
                onObjectRemoved: (index, object) => choiceMenu.removeItem(object as MenuItem)

                delegate: SymbolItem {
                    required property var modelData

                    text: modelData.name
                    onTriggered: button.chosen(modelData)
                }
            }
        }
    }
}
