import QtQuick
import QtQuick.Layouts
import Vantor.Style
import Vantor.Ui

// All keys, until one is pressed.
Sheet {
    id: sheet

    readonly property real textSize: Math.max(13, Style.distantSize(parent?.height ?? 0) / 2)
    readonly property list<var> columns: [
        [
            { keys: "F   F11", does: "Full screen" },
            { keys: "P", does: "Small window, above the others" },
            { keys: "Space", does: "Pause and go on" },
            { keys: "↑  ↓   Page ↑  Page ↓", does: "Next and previous channel" },
            { keys: "0 … 9", does: "Channel by its number" },
            { keys: "Backspace", does: "The channel before, and back" },
            { keys: "Return", does: "List of channels" },
            { keys: "I", does: "What is on now and next" },
            { keys: "←  →", does: "10 seconds back and on" },
            { keys: "Shift ←  Shift →", does: "60 seconds back and on" },
            { keys: "N", does: "Next episode" },
            { keys: "M   +   −", does: "Mute, volume" },
            { keys: "Ctrl +   Ctrl −", does: "Sound later, earlier" },
            { keys: "A   S", does: "Sound, subtitles" },
            { keys: "Z", does: "Shape of the picture" }
        ],
        [
            { keys: "Ctrl I", does: "About the picture" },
            { keys: "Ctrl .", does: "Stop" },
            { keys: "↑  ↓  ←  →", does: "Browse" },
            { keys: "Return", does: "Select" },
            { keys: "Menu   Shift F10", does: "What can be done with an entry" },
            { keys: "Esc", does: "Back" },
            { keys: "Ctrl 1   Ctrl 2   Ctrl 3", does: "TV, Movies, Shows" },
            { keys: "Ctrl O", does: "Open a media file" },
            { keys: "Ctrl K", does: "Connect a provider" },
            { keys: "Ctrl ,", does: "Settings" },
            { keys: "Ctrl Q", does: "Quit" },
            { keys: "?", does: "This list" }
        ]
    ]

    name: "Keys"
    padding: 2 * textSize
    onEscaped: close()

    RowLayout {
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
