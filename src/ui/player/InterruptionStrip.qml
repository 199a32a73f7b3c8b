import QtQuick
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: strip

    required property string text

    signal endChosen

    implicitHeight: Math.max(label.implicitHeight, end.implicitHeight) + 2 * 6
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
        anchors.right: end.left
        anchors.rightMargin: Style.gap
        anchors.verticalCenter: parent.verticalCenter
        text: strip.text
        font: Style.caption
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
    }

    TVButton {
        id: end
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        topPadding: 6
        bottomPadding: 6
        text: qsTr("Stop trying")
        font: Style.caption
        plainColor: Style.faded(Style.focusWhite, 0.14)
        onClicked: strip.endChosen()
    }
}
