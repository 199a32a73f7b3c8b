import QtQuick
import Vantor.Style
import Vantor.Ui

// The picture of an entry, or what stands for it: the symbol of its kind and, with room, its name.
ArtworkItem {
    id: artwork

    property string symbol: "film"
    property string name: ""
    readonly property int symbolSize: Math.max(1, Math.min(38, width / 4))

    topLeft: Qt.rgba(0.17, 0.24, 0.27, 1)
    bottomRight: Style.panelColor

    Loader {
        anchors.centerIn: parent
        width: parent.width
        active: !artwork.hasImage
        sourceComponent: artwork.height > 90 && artwork.name !== "" ? symbolAndName : symbolAlone

        Component {
            id: symbolAlone

            Icon {
                symbol: artwork.symbol
                size: artwork.symbolSize
                color: Style.mint
            }
        }

        Component {
            id: symbolAndName

            Column {
                spacing: 14

                Icon {
                    anchors.horizontalCenter: parent.horizontalCenter
                    symbol: artwork.symbol
                    size: artwork.symbolSize
                    color: Style.mint
                }

                Text {
                    width: parent.width
                    leftPadding: 10
                    rightPadding: 10
                    text: artwork.name
                    textFormat: Text.PlainText
                    font: Style.headline
                    color: Style.focusWhite
                    horizontalAlignment: Text.AlignHCenter
                    wrapMode: Text.Wrap
                    maximumLineCount: 4
                    elide: Text.ElideRight
                }
            }
        }
    }
}
