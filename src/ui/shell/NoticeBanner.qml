import QtQuick
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: banner

    required property string text

    signal dismissed

    visible: text !== ""
    implicitHeight: Math.max(label.implicitHeight, close.height) + 2 * 12
    color: Style.faded(Style.mint, 0.1)

    LiveText {
        id: label
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.right: close.left
        anchors.rightMargin: Style.gap
        anchors.verticalCenter: parent.verticalCenter
        text: banner.text
        font: Style.callout
        wrapMode: Text.Wrap
    }

    IconButton {
        id: close
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 32
        implicitHeight: 32
        symbol: "xmark"
        help: qsTr("Dismiss")
        size: 16
        onClicked: banner.dismissed()
    }
}
