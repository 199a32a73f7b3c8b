import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

// Channels with what they show now and next, around the highlighted one. The highlight is the
// model's, not the view's.
ListView {
    id: list

    required property ArtworkStore artwork
    // The highlighted row, -1 without one.
    required property int currentRow
    // Whether the keys go to it.
    required property bool focused
    readonly property int rowHeight: 44
    readonly property real rowWidth: width - leftMargin - rightMargin
    // From one row to the next.
    readonly property real pitch: rowHeight + spacing
    // Where its lines begin and end.
    readonly property int startMargin: 4
    readonly property int endMargin: 10
    readonly property int firstRow: Math.floor((contentY - originY) / pitch)
    readonly property int lastRow: Math.floor((contentY + height - originY) / pitch)

    // The rows on screen, both included.
    signal rowsShown(first: int, last: int)
    signal opened(row: int)

    // Room for the focus ring, which is drawn around a row.
    topMargin: 4
    bottomMargin: 12
    leftMargin: LayoutMirroring.enabled ? endMargin : startMargin
    rightMargin: LayoutMirroring.enabled ? startMargin : endMargin
    spacing: 6
    clip: true
    reuseItems: true
    cacheBuffer: 400
    boundsBehavior: Flickable.StopAtBounds
    keyNavigationEnabled: false
    currentIndex: -1
    ScrollBar.vertical: ThinScrollBar {}

    Accessible.role: Accessible.List

    function centerCurrent() {
        if (currentRow >= 0)
            positionViewAtIndex(currentRow, ListView.Center);
    }

    function reportRows() {
        rowsShown(firstRow, lastRow);
    }

    Component.onCompleted: {
        centerCurrent();
        reportRows();
    }
    onHeightChanged: centerCurrent()
    onFirstRowChanged: reportRows()
    onLastRowChanged: reportRows()
    onCurrentRowChanged: centerCurrent()

    // One for all rows.
    Item {
        parent: list.contentItem
        y: list.originY + list.currentRow * list.pitch
        width: list.rowWidth
        height: list.rowHeight

        FocusRing {
            shown: list.focused && list.currentRow >= 0
        }
    }

    delegate: GuideRow {
        width: list.rowWidth
        height: list.rowHeight
        focused: list.focused
        count: list.count
        artworkStore: list.artwork
        onOpened: row => list.opened(row)
    }
}
