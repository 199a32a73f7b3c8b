import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vantor.Style
import Vantor.Ui

Sheet {
    id: sheet

    required property Views views
    readonly property SettingsView view: views.settingsView

    name: view.title
    visible: view.shown
    width: 430
    height: 580
    onEscaped: view.back()
    onOpened: {
        arrival.message = "";
        column.focusFirst();
    }

    background: Rectangle {
        radius: 10
        color: Style.panelColor
        border.color: Style.hairline
    }

    Connections {
        target: sheet.view

        function onPageChanged() {
            pages.contentY = 0;
            column.focusedText = "";
            column.focusFirst();
            arrival.message = sheet.view.title;
        }
    }

    // The name of a page that comes while the sheet is open; the first one's is that of the sheet.
    LiveRegion {
        id: arrival
        message: ""
    }

    ColumnLayout {
        anchors.fill: parent
        anchors.margins: 24
        spacing: 20

        RowLayout {
            Layout.fillWidth: true

            Column {
                spacing: 4
                Layout.fillWidth: true

                StyledText {
                    anchors.left: parent.left
                    text: sheet.view.heading
                    font: Style.font(11, Font.Medium, 1.5)
                    color: Style.mint
                }

                StyledText {
                    anchors.left: parent.left
                    text: sheet.view.title
                    font: Style.font(26, Font.DemiBold)
                    Accessible.role: Accessible.Heading
                }
            }

            TVButton {
                id: back
                text: sheet.view.backLabel
                Keys.onDownPressed: column.focusFirst()
                plainColor: Style.faded(Style.focusWhite, 0.1)
                onClicked: sheet.view.back()
            }
        }

        StyledText {
            text: sheet.view.hint
            font: Style.caption
            color: Style.secondary
        }

        Flickable {
            id: pages

            Layout.fillWidth: true
            Layout.fillHeight: true
            // Focus rings reach a little beyond the rows.
            Layout.leftMargin: -4
            Layout.rightMargin: -4
            contentWidth: width
            contentHeight: column.implicitHeight + 8
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            ScrollBar.vertical: ThinScrollBar {}

            function reveal(item: Item) {
                const top = item.mapToItem(pages.contentItem, 0, 0).y;
                const lowest = Math.max(0, contentHeight - height);
                if (top - 4 < contentY)
                    contentY = Math.max(0, top - 4);
                else if (top + item.height + 4 > contentY + height)
                    contentY = Math.min(lowest, top + item.height + 4 - height);
            }

            Column {
                id: column

                x: 4
                y: 4
                width: pages.width - 8
                spacing: 12

                // The first thing to act on, or the way back on a page that has none.
                function focusFirst() {
                    column.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
                }

                // What had the focus when the blocks were made anew.
                property string focusedText: ""

                Repeater {
                    model: sheet.view.blocks
                    onItemAdded: (index, item) => {
                        if (sheet.view.blocks[index].text === column.focusedText && !back.activeFocus)
                            item.nextItemInFocusChain(true).forceActiveFocus(Qt.OtherFocusReason);
                    }

                    delegate: SettingsBlockItem {
                        width: column.width
                        onActivated: index => sheet.view.activate(index)
                        onFocusArrived: item => {
                            column.focusedText = modelData.text;
                            pages.reveal(item);
                        }
                    }
                }
            }
        }

        LiveText {
            text: sheet.view.message
            visible: text !== ""
            font: Style.caption
            color: Style.mint
            wrapMode: Text.Wrap
            Layout.fillWidth: true
        }
    }

    RemovalConfirmation {
        visible: sheet.view.confirmingRemoval
        onAccepted: sheet.view.removeProvider()
        onEscaped: sheet.view.cancelRemoval()
    }
}
