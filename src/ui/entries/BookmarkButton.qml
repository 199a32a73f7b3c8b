import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style

// Puts an entry on the list of favourites, or takes it from there; the symbol says whether it is on it.
TVButton {
    id: button

    readonly property bool marked: symbol === "bookmark.fill"

    // The control's own state, since it tells assistive programs of that.
    checkable: true
    checked: marked
    onToggled: checked = Qt.binding(() => button.marked)

    Accessible.name: qsTr("Add / remove from My list")
    ToolTip.text: qsTr("Add / remove from My list")
    ToolTip.visible: hovered && !down
    ToolTip.delay: 700
}
