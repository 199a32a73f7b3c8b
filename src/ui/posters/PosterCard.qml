import QtQuick
import Vantor.Style
import Vantor.Ui

Item {
    id: card

    required property int index
    required property string name
    required property url artwork
    required property string kindSymbol
    required property bool isSelected
    required property bool isFavorite
    required property ArtworkStore store
    property bool focused: false
    property int count: 0
    property bool inUse: true
    readonly property real border: 3

    signal chosen(int row)
    signal menuRequested(int row, point place)

    implicitHeight: 242

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: Assistive.placeOfEntry(index, count, false, isFavorite)
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.focusable: true
    Accessible.focused: focused
    Accessible.onPressAction: card.chosen(card.index)
    onFocusedChanged: tell()
    Component.onCompleted: tell()

    function tell() {
        if (focused)
            Assistive.highlight(card);
    }

    Item {
        anchors.fill: parent
        anchors.margins: card.border

        PosterArtwork {
            anchors.top: parent.top
            anchors.bottom: strip.top
            width: parent.width
            store: card.store
            active: card.inUse
            source: card.artwork
            symbol: card.kindSymbol
            name: card.name
        }

        OnDemand {
            anchors.top: parent.top
            anchors.right: parent.right
            visible: wanted
            wanted: card.isFavorite

            sourceComponent: Rectangle {
                implicitWidth: badge.width + 2 * 8
                implicitHeight: badge.height + 2 * 8
                color: Style.faded(Style.canvas, 0.8)

                Icon {
                    id: badge
                    anchors.centerIn: parent
                    symbol: "bookmark.fill"
                    size: 16
                    color: Style.mint
                }
            }
        }

        Rectangle {
            id: strip
            anchors.bottom: parent.bottom
            width: parent.width
            height: label.implicitHeight
            color: card.isSelected ? Style.focusWhite : Style.panelColor

            Text {
                id: label
                width: parent.width
                padding: 9
                text: card.name
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignLeft
                font: Style.font(12, Font.Medium)
                color: card.isSelected ? Style.canvas : Style.focusWhite
                elide: Text.ElideRight
            }
        }

        RoundedFrame {
            innerRadius: Style.radius
            thickness: card.border
            border.color: card.isSelected ? Style.focusWhite : Style.canvas
        }
    }

    FocusRing {
        shown: card.focused
        cornerRadius: Style.radius + card.border
    }

    MenuTap {
        onAsked: place => card.menuRequested(card.index, place)
    }
}
