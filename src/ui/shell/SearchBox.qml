import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: box

    required property TVShell shell

    signal done

    implicitWidth: 235
    implicitHeight: 36
    radius: Style.radius
    color: Style.panelColor
    border.color: field.activeFocus ? Style.mint : Style.hairline
    border.width: field.activeFocus ? 2 : 1

    Connections {
        target: box.shell
        enabled: box.visible

        function onSearchFocusRequested() {
            // After whatever chose the section has given the focus away.
            Keyboard.giveLater(field);
        }
    }

    Icon {
        id: icon
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        symbol: "magnifyingglass"
        size: 17
        color: Style.secondary
    }

    TextField {
        id: field

        objectName: "library-search"
        anchors.left: icon.right
        anchors.leftMargin: 8
        anchors.right: clear.visible ? clear.left : parent.right
        anchors.rightMargin: clear.visible ? 0 : 10
        height: parent.height
        padding: 0
        background: null
        horizontalAlignment: TextInput.AlignLeft
        verticalAlignment: TextInput.AlignVCenter
        font: Style.font(14)
        color: Style.focusWhite
        placeholderText: box.shell.searchPlaceholder
        placeholderTextColor: Style.secondary
        selectionColor: Style.mint
        selectedTextColor: Style.canvas
        selectByMouse: true
        text: box.shell.search
        Accessible.name: placeholderText
        onTextEdited: box.shell.search = text
        Keys.onDownPressed: box.done()
        Keys.onReturnPressed: box.done()
        Keys.onEnterPressed: box.done()
    }

    IconButton {
        id: clear
        anchors.right: parent.right
        anchors.rightMargin: 2
        anchors.verticalCenter: parent.verticalCenter
        implicitWidth: 32
        implicitHeight: 32
        visible: box.shell.search !== ""
        symbol: "xmark.circle.fill"
        help: qsTr("Clear search")
        size: 16
        color: Style.secondary
        onClicked: {
            box.shell.search = "";
            field.forceActiveFocus(Qt.OtherFocusReason);
        }
    }
}
