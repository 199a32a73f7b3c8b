import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

Slider {
    id: slider

    // The pointer meets it 6 above and below its line of the layout, too.
    readonly property int reach: 6

    implicitHeight: 20
    containmentMask: QtObject {
        function contains(place: point): bool {
            return place.x >= 0 && place.x <= slider.width && place.y >= -slider.reach && place.y <= slider.height + slider.reach;
        }
    }
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
