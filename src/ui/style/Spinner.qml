import QtQuick
import Vantor.Style

// Turning dots: something is under way.
Item {
    id: spinner

    property int size: 16

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    Repeater {
        model: 8

        delegate: Rectangle {
            required property int index
            readonly property real angle: index * Math.PI / 4
            readonly property real reach: (spinner.size - width) / 2

            width: spinner.size / 5
            height: width
            radius: width / 2
            x: spinner.width / 2 + reach * Math.cos(angle) - width / 2
            y: spinner.height / 2 + reach * Math.sin(angle) - width / 2
            color: Style.mint
            opacity: 0.15 + index * 0.85 / 7
        }
    }

    RotationAnimator on rotation {
        from: 0
        to: 360
        duration: 900
        loops: Animation.Infinite
        running: spinner.visible && !Style.reducedMotion
    }
}
