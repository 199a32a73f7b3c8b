import QtQuick
import Vantor.Style
import Vantor.Ui

Rectangle {
    id: sidebar

    required property TVShell shell
    required property WindowActions window

    // A section was entered.
    signal chosen

    color: Style.faded(Style.panelColor, 0.65)
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Sections")

    // By the arrow to where the entries are.
    function leave(toTheLeft: bool): bool {
        if (toTheLeft === LayoutMirroring.enabled)
            chosen();
        return toTheLeft === LayoutMirroring.enabled;
    }

    WindowDrag {
        width: parent.width
        height: sections.y
        window: sidebar.window
    }

    // Not an Image, for which Qt loads whatever can read a format of pictures before the first frame.
    StillImage {
        id: brand
        anchors.horizontalCenter: parent.horizontalCenter
        y: 24
        width: 160
        height: 90
        image: Style.brand(Style.zoom * Screen.devicePixelRatio)
    }

    StyledText {
        id: caption
        anchors.top: brand.bottom
        anchors.topMargin: 2
        anchors.horizontalCenter: parent.horizontalCenter
        // The spacing after the last letter is no part of the word.
        anchors.horizontalCenterOffset: 2.5
        text: qsTr("PLAYER")
        font: Style.font(8, Font.Medium, 5)
    }

    Column {
        id: sections
        anchors.top: caption.bottom
        anchors.topMargin: 28
        x: 12
        width: parent.width - 24
        spacing: 8

        Repeater {
            model: sidebar.shell.sections

            delegate: TVButton {
                required property var modelData
                required property int index

                width: sections.width
                text: modelData.title
                symbol: modelData.symbol
                font: Style.font(16)
                textAlignment: Text.AlignLeft
                selected: sidebar.shell.section === index
                Accessible.description: Assistive.placeOfChoice(index, sidebar.shell.sections.length, selected)
                Accessible.selectable: true
                Accessible.selected: selected
                Keys.onUpPressed: if (index > 0)
                    nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
                Keys.onDownPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
                Keys.onRightPressed: event => event.accepted = sidebar.leave(false)
                Keys.onLeftPressed: event => event.accepted = sidebar.leave(true)
                onClicked: {
                    sidebar.chosen();
                    sidebar.shell.navigate(index);
                }
            }
        }
    }

    TVButton {
        x: 12
        width: parent.width - 24
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 20
        text: qsTr("Settings")
        symbol: "gearshape"
        font: Style.font(17)
        textAlignment: Text.AlignLeft
        plainColor: "transparent"
        Keys.onUpPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        Keys.onRightPressed: event => event.accepted = sidebar.leave(false)
        Keys.onLeftPressed: event => event.accepted = sidebar.leave(true)
        onClicked: sidebar.shell.openSettings()
    }
}
