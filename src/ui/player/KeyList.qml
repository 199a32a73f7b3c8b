import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Vantor.Style
import Vantor.Ui

// All keys, until one is pressed or the pointer is.
Sheet {
    id: sheet

    readonly property real textSize: Math.max(13, Style.distantSize(parent?.height ?? 0) / 2)
    readonly property list<var> columns: [
        [
            { keys: "F   F11", does: qsTr("Full screen") },
            { keys: "P", does: qsTr("Small window, above the others") },
            { keys: qsTr("Space"), does: qsTr("Pause and go on") },
            { keys: qsTr("↑  ↓   Page ↑  Page ↓"), does: qsTr("Next and previous channel") },
            { keys: "0 … 9", does: qsTr("Channel by its number") },
            { keys: qsTr("Backspace"), does: qsTr("The channel before, and back") },
            { keys: qsTr("Return"), does: qsTr("List of channels") },
            { keys: "I", does: qsTr("What is on now and next") },
            { keys: "←  →", does: qsTr("10 seconds back and on") },
            { keys: qsTr("Shift ←  Shift →"), does: qsTr("60 seconds back and on") },
            { keys: "N", does: qsTr("Next episode") },
            { keys: "M   +   −", does: qsTr("Mute, volume") },
            { keys: qsTr("Ctrl +   Ctrl −"), does: qsTr("Sound later, earlier") },
            { keys: "A   S", does: qsTr("Sound, subtitles") },
            { keys: "Z", does: qsTr("Shape of the picture") }
        ],
        [
            { keys: qsTr("Ctrl I"), does: qsTr("About the picture") },
            { keys: qsTr("Ctrl ."), does: qsTr("Stop") },
            { keys: "↑  ↓  ←  →", does: qsTr("Browse") },
            { keys: qsTr("Return"), does: qsTr("Select") },
            { keys: qsTr("Menu   Shift F10"), does: qsTr("What can be done with an entry") },
            { keys: qsTr("Esc"), does: qsTr("Back") },
            { keys: qsTr("Ctrl 1   Ctrl 2   Ctrl 3"), does: qsTr("TV, Movies, Shows") },
            { keys: qsTr("Ctrl O"), does: qsTr("Open a media file") },
            { keys: qsTr("Ctrl K"), does: qsTr("Connect a provider") },
            { keys: qsTr("Ctrl ,"), does: qsTr("Settings") },
            { keys: qsTr("Ctrl Q"), does: qsTr("Quit") },
            { keys: "?", does: qsTr("This list") }
        ]
    ]

    name: qsTr("Keys")
    padding: 2 * textSize
    // Its own, which may exceed the window's: the sheet is reduced as a whole then.
    width: rows.implicitWidth + 2 * padding
    height: rows.implicitHeight + 2 * padding
    closePolicy: Popup.CloseOnPressOutside
    onEscaped: close()

    MouseArea {
        anchors.fill: parent
        anchors.margins: -sheet.padding
        onClicked: sheet.close()
    }

    RowLayout {
        id: rows
        spacing: 3 * sheet.textSize
        focus: true
        Keys.onPressed: event => {
            event.accepted = true;
            sheet.close();
        }

        Repeater {
            model: sheet.columns

            delegate: GridLayout {
                id: grid

                required property var modelData

                columns: 2
                columnSpacing: sheet.textSize * 1.5
                rowSpacing: sheet.textSize * 0.6
                Layout.alignment: Qt.AlignTop

                Repeater {
                    model: grid.modelData.length * 2

                    delegate: StyledText {
                        required property int index
                        readonly property var row: grid.modelData[Math.floor(index / 2)]
                        readonly property bool isKey: index % 2 === 0

                        text: isKey ? row.keys : row.does
                        font: Style.font(sheet.textSize, isKey ? Font.DemiBold : Font.Normal)
                        color: isKey ? Style.mint : Style.focusWhite
                    }
                }
            }
        }
    }
}
