import QtQuick
import Vantor.Style
import Vantor.Ui

Column {
    id: card

    required property EmptyState emptyState

    signal connectChosen

    visible: emptyState.shown
    spacing: 14

    Icon {
        anchors.horizontalCenter: parent.horizontalCenter
        symbol: "rectangle.stack"
        size: Style.largeTitle.pixelSize + 12
        color: Style.mint
    }

    StyledText {
        anchors.horizontalCenter: parent.horizontalCenter
        text: card.emptyState.headline
        font: Style.title2
    }

    StyledText {
        anchors.horizontalCenter: parent.horizontalCenter
        text: card.emptyState.explanation
        color: Style.secondary
    }

    TVButton {
        anchors.horizontalCenter: parent.horizontalCenter
        visible: card.emptyState.connectOffered
        text: qsTr("Connect provider")
        onClicked: card.connectChosen()
    }
}
