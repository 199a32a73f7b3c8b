import QtQuick
import Vantor.Style
import Vantor.Ui

// The picture of an entry, or the symbol of its kind and its name.
ProviderArtwork {
    id: artwork

    required property string name

    raised: standIn.item ? (standIn.height + standIn.gap) / 2 : 0

    Loader {
        id: standIn

        readonly property int gap: 14

        y: (parent.height + artwork.symbolSize - height + gap) / 2
        width: parent.width
        active: !artwork.hasImage && artwork.height > 90 && artwork.name !== ""

        sourceComponent: Text {
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
