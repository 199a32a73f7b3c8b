import QtQuick
import QtQuick.Layouts
import Vantor.Style
import Vantor.Ui

Item {
    id: header

    required property TVShell shell
    required property Commands commands
    required property WindowActions window

    // The search is over; the keyboard goes to what was found.
    signal done

    implicitHeight: 76

    WindowDrag {
        anchors.fill: parent
        window: header.window
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Style.inset
        anchors.rightMargin: 12
        spacing: Style.gap

        StyledText {
            text: header.shell.headerTitle
            font: Style.font(28, Font.DemiBold)
            elide: Text.ElideRight
            Layout.fillWidth: true
            Accessible.role: Accessible.Heading
        }

        SearchBox {
            visible: header.shell.searchOffered
            shell: header.shell
            onDone: header.done()
        }

        IconButton {
            symbol: "folder"
            help: qsTr("Open a media file")
            onClicked: header.shell.openFile()
        }

        IconButton {
            symbol: "arrow.clockwise"
            help: qsTr("Refresh library")
            visible: header.shell.refreshOffered && header.shell.searchOffered
            enabled: header.shell.refreshEnabled
            onClicked: header.shell.refresh()
        }

        Rectangle {
            Layout.preferredWidth: 1
            Layout.preferredHeight: 22
            Layout.leftMargin: 4
            Layout.rightMargin: 4
            color: Style.hairline
        }

        WindowButtons {
            window: header.window
            commands: header.commands
        }
    }
}
