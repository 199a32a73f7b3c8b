import QtQuick
import Vantor.Style
import Vantor.Ui

// The channel that somebody zaps to, with its programmes.
Rectangle {
    id: panel

    required property ChannelBanner banner
    required property ArtworkStore artwork
    required property int textSize

    implicitHeight: row.height + 2 * textSize
    color: Style.faded("black", 0.78)

    LiveRegion {
        message: panel.banner.number + " " + panel.banner.name + ", " + panel.banner.now
    }

    Row {
        id: row
        x: panel.textSize
        y: panel.textSize
        width: parent.width - 2 * panel.textSize
        spacing: panel.textSize

        Text {
            id: number
            anchors.verticalCenter: parent.verticalCenter
            text: panel.banner.number
            textFormat: Text.PlainText
            font: Style.font(panel.textSize * 1.5, Font.DemiBold)
            color: Style.mint
        }

        ProviderArtwork {
            id: picture
            anchors.verticalCenter: parent.verticalCenter
            width: panel.textSize * 4
            height: panel.textSize * 2.5
            visible: panel.width > 700
            store: panel.artwork
            source: panel.banner.artwork
            symbol: "play.tv"
        }

        Column {
            width: parent.width - number.width - (picture.visible ? picture.width + parent.spacing : 0) - parent.spacing
            spacing: panel.textSize / 4

            component Line: Text {
                width: parent.width
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignLeft
                color: Style.focusWhite
                elide: Text.ElideRight
                maximumLineCount: 1
            }

            Line {
                text: panel.banner.name
                font: Style.font(panel.textSize, Font.DemiBold)
            }

            Line {
                text: panel.banner.times === "" ? panel.banner.now : panel.banner.times + "   " + panel.banner.now
                font: Style.font(panel.textSize * 0.7)
            }

            Rectangle {
                anchors.left: parent.left
                visible: panel.banner.progress >= 0
                width: parent.width / 2
                height: 4
                radius: 2
                color: Style.faded(Style.focusWhite, 0.2)

                Rectangle {
                    width: parent.width * Math.max(0, panel.banner.progress)
                    height: parent.height
                    radius: 2
                    color: Style.mint
                }
            }

            Line {
                visible: text !== ""
                text: panel.banner.next
                font: Style.font(panel.textSize * 0.7)
                color: Style.secondary
            }
        }
    }
}
