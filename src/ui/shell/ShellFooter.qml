import QtQuick
import Vantor.Style
import Vantor.Ui

Item {
    id: footer

    required property TVShell shell

    implicitHeight: 34

    component Note: StyledText {
        anchors.verticalCenter: parent.verticalCenter
        font: Style.font(10)
        color: Style.secondary
        elide: Text.ElideRight
    }

    Note {
        anchors.left: parent.left
        anchors.leftMargin: Style.inset
        anchors.right: hint.left
        anchors.rightMargin: Style.gap
        text: footer.shell.accountLabel
    }

    Note {
        id: hint
        anchors.horizontalCenter: parent.horizontalCenter
        text: footer.shell.browseHint
    }

    Note {
        anchors.right: parent.right
        anchors.rightMargin: Style.inset
        text: footer.shell.versionLabel
    }
}
