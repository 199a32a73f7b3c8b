import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

AbstractButton {
    id: link

    padding: 4
    implicitHeight: 32
    focusPolicy: Qt.TabFocus
    font: Style.body
    Accessible.role: Accessible.Link
    Accessible.name: text
    Accessible.onPressAction: if (enabled)
        link.clicked()
    Keys.onReturnPressed: link.clicked()
    Keys.onEnterPressed: link.clicked()
    Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
    Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)

    contentItem: Text {
        text: link.text
        font: link.font
        color: Style.mint
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        verticalAlignment: Text.AlignVCenter

        HoverHandler {
            cursorShape: Qt.PointingHandCursor
        }
    }

    background: Item {
        FocusRing {
            shown: link.visualFocus
            anchors.margins: 0
        }
    }
}
