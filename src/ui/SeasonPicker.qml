import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

ComboBox {
    id: picker

    required property EpisodeListModel episodes

    model: episodes.seasons
    implicitHeight: 36
    leftPadding: 12
    rightPadding: 34
    font: Style.font(13)
    Accessible.name: "Season"
    onActivated: index => episodes.chooseSeason(index)

    function follow() {
        currentIndex = episodes.seasonRow;
    }

    onModelChanged: follow()
    Component.onCompleted: follow()

    Connections {
        target: picker.episodes

        function onSeasonRowChanged() {
            picker.follow();
        }
    }

    // Space is also a shortcut of the window; here it opens the choices.
    Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Space

    contentItem: Text {
        text: picker.displayText
        font: picker.font
        color: Style.focusWhite
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    indicator: Icon {
        x: picker.width - width - 12
        anchors.verticalCenter: parent.verticalCenter
        symbol: "chevron.down"
    }

    background: Rectangle {
        radius: Style.radius
        color: Style.panelColor

        FocusRing {
            shown: picker.visualFocus
        }
    }

    delegate: ItemDelegate {
        id: choice

        required property int index
        required property string modelData

        width: ListView.view.width
        height: 32
        text: modelData
        font: picker.font
        highlighted: picker.highlightedIndex === index
        Accessible.name: text

        contentItem: Text {
            text: choice.text
            font: choice.font
            color: choice.highlighted ? Style.canvas : Style.focusWhite
            verticalAlignment: Text.AlignVCenter
            elide: Text.ElideRight
        }

        background: Rectangle {
            radius: Style.radius
            color: choice.highlighted ? Style.focusWhite : "transparent"
        }
    }

    popup: Popup {
        y: picker.height + 4
        width: picker.width
        height: Math.min(contentItem.implicitHeight + 12, 300)
        padding: 6
        margins: 8

        background: Rectangle {
            radius: 8
            color: Style.panelColor
            border.color: Style.hairline
        }

        contentItem: ListView {
            implicitHeight: contentHeight
            clip: true
            model: picker.popup.visible ? picker.delegateModel : null
            currentIndex: picker.highlightedIndex
            boundsBehavior: Flickable.StopAtBounds
            ScrollBar.vertical: ThinScrollBar {}
        }
    }
}
