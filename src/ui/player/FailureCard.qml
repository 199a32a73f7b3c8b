import QtQuick
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: card

    required property string message

    signal retryChosen
    signal closeChosen

    visible: message !== ""
    implicitHeight: column.implicitHeight + 2 * 16
    radius: 8
    color: Style.faded(Style.panelColor, 0.92)

    Column {
        id: column
        x: 16
        y: 16
        width: parent.width - 2 * 16
        spacing: 12

        LiveText {
            width: parent.width
            text: card.message
            font: Style.callout
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignHCenter
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: Style.gap

            TVButton {
                text: qsTr("Retry")
                plainColor: Style.faded(Style.focusWhite, 0.14)
                onClicked: card.retryChosen()
            }

            TVButton {
                text: qsTr("Close")
                plainColor: Style.faded(Style.focusWhite, 0.14)
                onClicked: card.closeChosen()
            }
        }
    }
}
