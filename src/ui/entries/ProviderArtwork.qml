import QtQuick
import Vantor.Style
import Vantor.Ui

// The picture of an entry, or the symbol of its kind.
ArtworkItem {
    id: artwork

    property string symbol: "film"
    readonly property int symbolSize: Math.max(1, Math.min(38, width / 4))
    // How far the symbol stands above the middle.
    property real raised: 0

    topLeft: Qt.rgba(0.17, 0.24, 0.27, 1)
    bottomRight: Style.panelColor

    Icon {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -artwork.raised
        visible: !artwork.hasImage
        symbol: artwork.symbol
        size: artwork.symbolSize
        color: Style.mint
    }
}
