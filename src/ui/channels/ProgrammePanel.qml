import QtQuick
import QtQuick.Layouts
import Vantor.Style
import Vantor.Ui

// What the highlighted channel shows now, and what can be done with the channel.
ColumnLayout {
    id: panel

    required property ChannelView channels

    spacing: 8

    StyledText {
        Layout.fillWidth: true
        text: panel.channels.channelName
        font: Style.font(29, Font.DemiBold)
        horizontalAlignment: Text.AlignLeft
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
    }

    StyledText {
        Layout.fillWidth: true
        visible: text !== ""
        text: panel.channels.programmeTitle
        font: Style.title2
        horizontalAlignment: Text.AlignLeft
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
    }

    StyledText {
        Layout.fillWidth: true
        visible: text !== ""
        text: panel.channels.programmeTimes
    }

    StyledText {
        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.maximumHeight: implicitHeight
        Layout.minimumHeight: 18
        visible: text !== ""
        text: panel.channels.programmeDescription
        color: Style.secondary
        wrapMode: Text.Wrap
        elide: Text.ElideRight
    }

    StyledText {
        Layout.fillWidth: true
        visible: text !== ""
        text: panel.channels.programmeHint
        color: Style.secondary
        wrapMode: Text.Wrap
    }

    OnDemand {
        Layout.topMargin: 6
        visible: wanted
        wanted: panel.channels.channelSelected

        sourceComponent: Row {
            spacing: Style.gap

            TVButton {
                text: qsTr("Watch channel")
                selected: true
                onClicked: panel.channels.watch()
            }

            BookmarkButton {
                symbol: panel.channels.bookmarkSymbol
                onClicked: panel.channels.toggleBookmark()
            }
        }
    }

    LiveText {
        Layout.fillWidth: true
        visible: text !== ""
        text: panel.channels.error
        font: Style.caption
        color: Style.warning
        wrapMode: Text.Wrap
    }

    Item {
        Layout.fillHeight: true
    }
}
