import QtQuick
import Vantor.Style
import Vantor.Ui

// One piece of a settings page: a text, a row that acts, or a link.
Loader {
    id: block

    required property int index
    required property var modelData

    signal activated(int index)
    signal focusArrived(Item item)

    sourceComponent: modelData.kind === "row" ? row : modelData.kind === "link" ? link : words

    Component {
        id: words

        StyledText {
            text: block.modelData.text
            color: block.modelData.kind === "secondary" ? Style.secondary : Style.focusWhite
            wrapMode: Text.Wrap
            lineHeight: 1.25
        }
    }

    Component {
        id: row

        SettingsRow {
            title: block.modelData.text
            subtitle: block.modelData.subtitle
            place: block.modelData.place
            onClicked: block.activated(block.index)
            onActiveFocusChanged: if (activeFocus)
                block.focusArrived(this)
        }
    }

    Component {
        id: link

        LinkButton {
            text: block.modelData.text
            Accessible.description: block.modelData.place
            onClicked: block.activated(block.index)
            onActiveFocusChanged: if (activeFocus)
                block.focusArrived(this)
        }
    }
}
