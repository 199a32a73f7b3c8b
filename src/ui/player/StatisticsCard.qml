import QtQuick
import Vantor.Style
import Vantor.Ui

// What is known of the picture, over it.
Rectangle {
    id: card

    required property Statistics statistics
    required property int textSize

    implicitWidth: text.implicitWidth + 2 * textSize
    implicitHeight: text.implicitHeight + textSize
    radius: 8
    color: Style.faded("black", 0.78)

    StyledText {
        id: text
        x: card.textSize
        y: card.textSize / 2
        text: card.statistics.text
        font: Style.font(card.textSize * 0.6)
        color: Style.focusWhite
    }
}
