import QtQuick
import Vantor.Style
import Vantor.Ui

TVButton {
    id: row

    required property string title
    required property string subtitle
    // Among what acts on its page, in words.
    required property string place

    text: title
    plainColor: Style.faded(Style.focusWhite, 0.07)
    Accessible.description: subtitle + ", " + place
    Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
    Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)

    contentItem: Item {
        implicitHeight: words.implicitHeight

        Column {
            id: words
            anchors.left: parent.left
            anchors.right: chevron.left
            spacing: 3

            Text {
                width: parent.width
                text: row.title
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignLeft
                font: Style.headline
                color: row.textColor
                wrapMode: Text.Wrap
            }

            Text {
                width: parent.width
                text: row.subtitle
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignLeft
                font: Style.caption
                color: row.textColor
                opacity: 0.65
                wrapMode: Text.Wrap
            }
        }

        Icon {
            id: chevron
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            symbol: "chevron.right"
            rotation: LayoutMirroring.enabled ? 180 : 0
            size: 20
            color: row.textColor
        }
    }
}
