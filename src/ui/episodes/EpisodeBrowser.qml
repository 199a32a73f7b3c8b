import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

FocusScope {
    id: browser

    required property EpisodeListModel episodes

    StyledText {
        id: heading
        anchors.left: parent.left
        anchors.leftMargin: Style.inset
        anchors.verticalCenter: season.verticalCenter
        text: qsTr("Episodes")
        font: Style.title2
    }

    SeasonPicker {
        id: season
        y: 8
        anchors.right: parent.right
        anchors.rightMargin: Style.inset
        width: 200
        episodes: browser.episodes
        onPointedAt: list.forceActiveFocus(Qt.OtherFocusReason)
    }

    StyledText {
        anchors.right: season.left
        anchors.rightMargin: Style.gap
        anchors.verticalCenter: season.verticalCenter
        text: season.name
        Accessible.ignored: true
    }

    Column {
        id: texts
        x: Style.inset
        anchors.top: season.bottom
        width: parent.width - 2 * x

        component Message: LiveText {
            width: texts.width
            visible: text !== ""
            topPadding: 12
            wrapMode: Text.Wrap
        }

        Message {
            text: browser.episodes.progress
        }

        Message {
            text: browser.episodes.error
        }

        Message {
            text: browser.episodes.emptyNote
        }
    }

    ListView {
        id: list

        readonly property int rowHeight: 44

        anchors.top: texts.bottom
        anchors.topMargin: 10
        anchors.bottom: parent.bottom
        x: Style.inset
        width: parent.width - 2 * x
        topMargin: 4
        bottomMargin: Style.inset
        spacing: 6
        model: browser.episodes
        focus: true
        activeFocusOnTab: true
        reuseItems: true
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0
        preferredHighlightBegin: (height - rowHeight) / 2
        preferredHighlightEnd: (height + rowHeight) / 2
        highlightRangeMode: ListView.ApplyRange
        // The player takes the whole window in between.
        property bool placed: false
        Component.onCompleted: {
            currentIndex = browser.episodes.currentRow;
            placed = true;
        }
        onCurrentIndexChanged: if (placed && currentIndex >= 0)
            browser.episodes.currentRow = currentIndex
        ScrollBar.vertical: ThinScrollBar {
            atWindowEdge: true
            parent: browser
            x: mirrored ? 0 : browser.width - width
            y: list.y
            height: list.height
        }

        Accessible.role: Accessible.List
        Accessible.name: heading.text

        Keys.onReturnPressed: browser.episodes.play(currentIndex)
        Keys.onEnterPressed: browser.episodes.play(currentIndex)
        Keys.onPressed: event => {
            const page = Math.max(1, Math.floor(height / (rowHeight + spacing)) - 1);
            event.accepted = true;
            if (event.key === Qt.Key_PageUp)
                currentIndex = Math.max(0, currentIndex - page);
            else if (event.key === Qt.Key_PageDown)
                currentIndex = Math.min(count - 1, currentIndex + page);
            else
                event.accepted = false;
        }

        Connections {
            target: browser.episodes

            function onModelReset() {
                list.currentIndex = 0;
                list.positionViewAtBeginning();
            }
        }

        delegate: EpisodeRow {
            width: list.width
            focused: list.activeFocus && ListView.isCurrentItem
            count: list.count
            onChosen: row => {
                list.forceActiveFocus(Qt.MouseFocusReason);
                list.currentIndex = row;
                browser.episodes.play(row);
            }
        }
    }
}
