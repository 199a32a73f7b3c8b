import QtQuick
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: strip

    required property string text

    implicitHeight: label.implicitHeight + 2 * 10
    color: Style.faded("black", 0.7)

    Spinner {
        id: spinner
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.verticalCenter: parent.verticalCenter
    }

    LiveText {
        id: label
        anchors.left: spinner.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        text: strip.text
        font: Style.caption
        elide: Text.ElideRight
    }
}
