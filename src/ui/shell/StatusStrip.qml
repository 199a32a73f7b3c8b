import QtQuick
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: strip

    required property StatusView line

    implicitHeight: label.implicitHeight + 2 * 10
    color: Style.faded(Style.panelColor, 0.35)

    StyledText {
        id: label
        anchors.left: parent.left
        anchors.leftMargin: Style.inset
        width: Math.min(implicitWidth, strip.width - 2 * Style.inset - count.width - spinner.width - progress.width - 3 * Style.gap)
        anchors.verticalCenter: parent.verticalCenter
        text: strip.line.label
        font: Style.headline
        elide: Text.ElideRight
    }

    Spinner {
        id: spinner
        anchors.left: label.right
        anchors.leftMargin: Style.gap
        anchors.verticalCenter: parent.verticalCenter
        visible: strip.line.loading
        Accessible.ignored: false
        Accessible.role: Accessible.Animation
        Accessible.name: qsTr("Loading")
    }

    StyledText {
        id: progress
        anchors.left: spinner.right
        anchors.leftMargin: Style.gap
        anchors.verticalCenter: parent.verticalCenter
        text: strip.line.progress
        font: Style.caption
        color: Style.secondary
    }

    StyledText {
        id: count
        anchors.right: parent.right
        anchors.rightMargin: Style.inset
        anchors.verticalCenter: parent.verticalCenter
        text: strip.line.count
        font: Style.caption
        color: Style.secondary
    }

    LiveText {
        x: Style.inset
        width: parent.width - 2 * Style.inset
        anchors.bottom: parent.bottom
        anchors.bottomMargin: -4
        visible: text !== ""
        text: strip.line.error
        font: Style.caption
        color: Style.warning
        elide: Text.ElideRight
    }
}
