import QtQuick
import Vantor.Style
import Vantor.Ui

// A channel with what it shows now and next.
Item {
    id: row

    required property int index
    required property string name
    required property url artwork
    required property string kindSymbol
    required property bool isSelected
    required property bool isPlaying
    required property bool isFavorite
    required property string nowText
    required property string nextText
    required property bool isOn
    required property ArtworkStore artworkStore
    property bool focused: false
    property int count: 0
    readonly property bool highlighted: focused && isSelected
    readonly property string bookmarkSymbol: isFavorite ? "bookmark.fill" : "bookmark"
    readonly property color ink: isSelected ? Style.canvas : Style.focusWhite
    readonly property real programmeWidth: (width - channel.width - 2 * Style.gap) / 2

    signal opened(int row)

    implicitHeight: 44

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: nowText + " / " + nextText + ", " + Assistive.placeOfEntry(index, count, isPlaying, isFavorite)
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.focusable: true
    Accessible.focused: highlighted
    Accessible.onPressAction: row.opened(row.index)

    onHighlightedChanged: tell()
    Component.onCompleted: tell()

    function tell() {
        if (highlighted)
            Assistive.highlight(row);
    }

    ListView.onPooled: picture.active = false
    ListView.onReused: picture.active = true

    Rectangle {
        id: channel
        anchors.left: parent.left
        width: 275
        height: parent.height
        radius: Style.radius
        color: row.isSelected ? Style.mint : Style.panelColor

        Text {
            id: number
            anchors.left: parent.left
            anchors.leftMargin: 8
            width: 22
            anchors.verticalCenter: parent.verticalCenter
            text: row.index + 1
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignLeft
            font: Style.caption
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 7
            color: row.ink
        }

        ProviderArtwork {
            id: picture
            anchors.left: number.right
            anchors.leftMargin: Style.gap
            anchors.verticalCenter: parent.verticalCenter
            width: 38
            height: 32
            store: row.artworkStore
            source: row.artwork
            symbol: row.kindSymbol
        }

        Text {
            anchors.left: picture.right
            anchors.leftMargin: Style.gap
            anchors.right: playing.left
            anchors.verticalCenter: parent.verticalCenter
            text: row.name
            textFormat: Text.PlainText
            font: Style.font(13, Font.DemiBold)
            color: row.ink
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            maximumLineCount: 1
        }

        Loader {
            id: playing
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            width: active ? 22 : 0
            active: row.isPlaying

            sourceComponent: Item {
                implicitHeight: symbol.height

                Icon {
                    id: symbol
                    anchors.right: parent.right
                    symbol: "play.fill"
                    size: 18
                    color: row.ink
                }
            }
        }
    }

    ProgrammeCell {
        id: now
        anchors.left: channel.right
        anchors.leftMargin: Style.gap
        width: row.programmeWidth
        height: parent.height
        text: row.nowText
        note: !row.isOn
        ink: row.ink
        color: row.isSelected ? Style.focusWhite : Style.faded(Style.panelColor, 0.7)
    }

    ProgrammeCell {
        anchors.left: now.right
        anchors.leftMargin: Style.gap
        width: row.programmeWidth
        height: parent.height
        text: row.nextText
        color: Style.faded(Style.panelColor, 0.6)
    }
}
