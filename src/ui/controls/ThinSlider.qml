import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

Slider {
    id: slider

    implicitHeight: 20
    padding: 0
    focusPolicy: Qt.TabFocus
    opacity: enabled ? 1 : Style.disabledOpacity

    background: Rectangle {
        y: (slider.height - height) / 2
        width: slider.width
        height: 4
        radius: 2
        color: Style.faded(Style.focusWhite, 0.2)

        Rectangle {
            anchors.left: parent.left
            width: slider.position * parent.width
            height: parent.height
            radius: 2
            color: Style.mint
        }
    }

    handle: Rectangle {
        x: slider.visualPosition * (slider.width - width)
        y: (slider.height - height) / 2
        width: 12
        height: 12
        radius: 6
        color: Style.focusWhite

        FocusRing {
            shown: slider.visualFocus
            cornerRadius: 6
        }
    }
}
