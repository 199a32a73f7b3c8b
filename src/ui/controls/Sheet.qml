import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Templates as T
import Vantor.Style
import Vantor.Ui

// A modal panel in the middle of the window. Keyboard focus stays in it and goes back where it was.
Popup {
    id: sheet

    required property string name
    default property alias body: scope.data
    property Item firstFocus: null
    // Of the window's edges at least.
    readonly property int away: 12

    signal escaped

    parent: T.Overlay.overlay
    // By hand: what Qt puts into the middle stays where it was when its scale changes.
    x: parent ? (parent.width - width * scale) / 2 : 0
    y: parent ? (parent.height - height * scale) / 2 : 0
    scale: parent ? Math.min(Style.textScale, parent.width / (width + 2 * away), parent.height / (height + 2 * Style.headroom)) : 1
    transformOrigin: Popup.TopLeft
    modal: true
    focus: true
    padding: 0
    closePolicy: Popup.NoAutoClose

    T.Overlay.modal: Rectangle {
        color: Style.faded("black", 0.6)
    }

    background: Rectangle {
        radius: 10
        color: Style.canvas
        border.color: Style.hairline
    }

    contentItem: FocusScope {
        id: scope

        focus: true
        Keys.onEscapePressed: sheet.escaped()
    }

    onAboutToShow: {
        // The panel that the popup makes around its content is the dialog for assistive programs.
        scope.parent.Accessible.name = name;
        if (firstFocus)
            firstFocus.forceActiveFocus(Qt.TabFocusReason);
    }
    onNameChanged: if (opened)
        scope.parent.Accessible.name = name
}
