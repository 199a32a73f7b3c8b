import QtQuick
import Vantor.Style
import Vantor.Ui

// The next episode, which Return plays and Esc refuses.
Rectangle {
    id: card

    required property NextEpisode next
    required property int textSize

    implicitWidth: column.implicitWidth + 2 * textSize
    implicitHeight: column.implicitHeight + 2 * textSize
    radius: 8
    color: Style.faded("black", 0.85)

    LiveRegion {
        message: heading.text + ": " + title.text + ", " + outlook.text
    }

    Column {
        id: column
        x: card.textSize
        y: card.textSize
        spacing: card.textSize / 2

        StyledText {
            id: heading
            anchors.left: parent.left
            text: qsTr("Next episode")
            font: Style.font(card.textSize * 0.6)
            color: Style.secondary
        }

        StyledText {
            id: title
            anchors.left: parent.left
            width: Math.min(implicitWidth, card.textSize * 24)
            text: card.next.title
            font: Style.font(card.textSize, Font.DemiBold)
            color: Style.focusWhite
            elide: Text.ElideRight
        }

        StyledText {
            id: outlook
            anchors.left: parent.left
            text: card.next.outlook
            font: Style.font(card.textSize * 0.6)
            color: Style.mint
        }

        Row {
            anchors.left: parent.left
            spacing: Style.gap

            TVButton {
                text: qsTr("Play now")
                plainColor: Style.faded(Style.focusWhite, 0.14)
                onClicked: card.next.play()
            }

            TVButton {
                text: qsTr("Not now")
                plainColor: Style.faded(Style.focusWhite, 0.14)
                onClicked: card.next.refuse()
            }
        }
    }
}
