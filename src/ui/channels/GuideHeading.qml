import QtQuick
import QtQuick.Layouts
import Vantor.Style
import Vantor.Ui

ColumnLayout {
    id: heading

    required property ChannelView channels
    required property StatusView line

    // The pointer is done with the groups.
    signal groupPointedAt

    spacing: 0

    RowLayout {
        Layout.fillWidth: true
        Layout.topMargin: 6
        Layout.bottomMargin: 10
        spacing: Style.gap

        StyledText {
            text: qsTr("CHANNEL GUIDE")
            font: Style.font(11, Font.Bold, 1)
            color: Style.mint
        }

        OnDemand {
            visible: wanted
            wanted: heading.line.loading

            sourceComponent: Spinner {
                Accessible.ignored: false
                Accessible.role: Accessible.Animation
                Accessible.name: qsTr("Loading")
            }
        }

        StyledText {
            Layout.leftMargin: 14
            text: qsTr("Group")
            font: Style.body
            Accessible.ignored: true
        }

        GroupPicker {
            Layout.fillWidth: true
            Layout.preferredWidth: 320
            Layout.maximumWidth: 320
            channels: heading.channels
            onPointedAt: heading.groupPointedAt()
        }

        Item {
            Layout.fillWidth: true
        }

        StyledText {
            text: qsTr("Now / Next")
            font: Style.body
        }
    }

    LiveText {
        Layout.fillWidth: true
        Layout.bottomMargin: 10
        visible: text !== ""
        text: heading.line.error
        font: Style.caption
        color: Style.warning
        wrapMode: Text.Wrap
    }
}
