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

        sourceComponent: Menu {
            id: choiceMenu

            y: -height - 4
            x: button.width - width
            width: 200
            padding: 6
            margins: 8

            background: Rectangle {
                radius: 8
                color: Style.panelColor
                border.color: Style.hairline
            }

            Instantiator {
                model: button.choices
                onObjectAdded: (index, object) => choiceMenu.insertItem(index, object as MenuItem)
                onObjectRemoved: (index, object) => choiceMenu.removeItem(object as MenuItem)

                delegate: ChoiceItem {
                    onTriggered: button.chosen(modelData)
                }
            }
        }
    }
}
