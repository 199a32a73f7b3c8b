import QtQuick
import Vantor.Style

// Outlines its parent from the inside out, and rounds what the parent shows: a picture is clipped to
// a rectangle only, so what is outside the rounding is painted over.
Rectangle {
    property int innerRadius: Style.radius
    property int thickness: 3

    anchors.fill: parent
    anchors.margins: -thickness
    radius: innerRadius + thickness
    color: "transparent"
    border.color: Style.canvas
    border.width: thickness
}
