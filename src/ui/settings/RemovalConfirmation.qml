import QtQuick
import QtQuick.Layouts
import Vantor.Style
import Vantor.Ui

Sheet {
    id: sheet

    signal accepted

    name: qsTr("Remove this provider from the Mac?")
    width: 380
    height: column.implicitHeight + 2 * 24
    firstFocus: cancel

    ColumnLayout {
        id: column
        x: 24
        y: 24
        width: 380 - 2 * 24
        spacing: 14

        StyledText {
            text: sheet.name
            font: Style.headline
            wrapMode: Text.Wrap
            Layout.fillWidth: true
        }

        StyledText {
            text: qsTr("This removes its saved login and libraries. It does not cancel your subscription.")
            color: Style.secondary
            wrapMode: Text.Wrap
            Layout.fillWidth: true
        }

        RowLayout {
            spacing: Style.gap
            Layout.alignment: Qt.AlignRight

            TVButton {
                id: cancel
                text: qsTr("Cancel")
                onClicked: sheet.escaped()
            }

            TVButton {
                text: qsTr("Remove provider")
                plainTextColor: Style.warning
                onClicked: sheet.accepted()
            }
        }
    }
}
