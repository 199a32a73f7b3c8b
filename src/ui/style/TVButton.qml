import QtQuick
import QtQuick.Templates as T
import Vantor.Style

T.AbstractButton {
    id: button

    property bool selected: false
    // Whether the keys are shown to be here.
    property bool ringed: visualFocus
    property string symbol: ""
    property int textAlignment: Text.AlignHCenter
    // Whether the text gets smaller where there is no room for it.
    property bool shrinks: false
    property color plainColor: Style.panelColor
    property color plainTextColor: Style.focusWhite
    readonly property bool highlighted: selected || down
    readonly property color textColor: highlighted ? Style.canvas : plainTextColor

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    leftPadding: 14
    rightPadding: 14
    topPadding: 11
    bottomPadding: 11
    spacing: Style.gap
    font: Style.body
    opacity: enabled ? 1 : Style.disabledOpacity
    focusPolicy: Qt.TabFocus

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: if (enabled)
        button.clicked()

    Keys.onReturnPressed: button.clicked()
    Keys.onEnterPressed: button.clicked()

    background: Rectangle {
        radius: Style.radius
        color: button.highlighted ? Style.focusWhite : button.plainColor

        FocusRing {
            shown: button.ringed
        }
    }

    contentItem: Item {
        implicitWidth: icon.width + label.spacingBefore + label.implicitWidth
        implicitHeight: Math.max(label.implicitHeight, icon.visible ? icon.size : 0)

        Icon {
            id: icon
            anchors.left: parent.left
            visible: button.symbol !== ""
            width: visible ? 22 : 0
            anchors.verticalCenter: parent.verticalCenter
            symbol: button.symbol
            size: button.font.pixelSize + 3
            color: button.textColor
        }

        Text {
            id: label
            readonly property int spacingBefore: icon.visible && button.text !== "" ? button.spacing : 0
            anchors.left: icon.right
            anchors.leftMargin: spacingBefore
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            text: button.text
            font: button.font
            color: button.textColor
            horizontalAlignment: button.textAlignment
            elide: Text.ElideRight
            fontSizeMode: button.shrinks ? Text.HorizontalFit : Text.FixedSize
            minimumPixelSize: 8
            textFormat: Text.PlainText
        }
    }
}
