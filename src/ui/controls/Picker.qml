import QtQuick
import QtQuick.Controls.Basic
import Vantor.Style
import Vantor.Ui

// One choice of several, which drop down.
ComboBox {
    id: picker

    required property string name

    // The list that the pointer opened is closed again.
    signal pointedAt

    implicitHeight: 32
    leftPadding: mirrored ? 30 : 12
    rightPadding: mirrored ? 12 : 30
    font: Style.body

    Accessible.role: Accessible.ComboBox
    Accessible.name: name
    Accessible.description: displayText
    Accessible.onPressAction: popup.open()

    // Elsewhere Space pauses; here it opens the list, as Return does: when it is let go, since that
    // takes the choice of a list that is open.
    Keys.priority: letterSought ? Keys.AfterItem : Keys.BeforeItem
    Keys.onPressed: event => {
        const letter = /[^\x00-\x20\x7f]/.test(event.text);
        returnHeld = opensList(event);
        event.accepted = returnHeld || letter && letterSought;
        letterSought = letter && !letterSought;
    }
    Keys.onReleased: event => {
        letterSought = false;
        event.accepted = returnHeld && opensList(event);
        returnHeld = false;
        if (event.accepted)
            popup.open();
    }
    onActiveFocusChanged: returnHeld = false

    // Return was pressed here: what was pressed elsewhere and brought the focus here opens nothing.
    property bool returnHeld: false
    // Elsewhere a letter commands the player. Here it comes twice: before the control, which looks for
    // it and leaves it to others, and after it.
    property bool letterSought: false

    function opensList(event: var): bool {
        return !popup.visible && (event.key === Qt.Key_Return || event.key === Qt.Key_Enter);
    }

    contentItem: Text {
        text: picker.displayText
        font: picker.font
        color: Style.focusWhite
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 10
        verticalAlignment: Text.AlignVCenter
    }

    indicator: Icon {
        x: picker.mirrored ? 10 : picker.width - width - 10
        y: (picker.height - height) / 2
        symbol: "chevron.down"
        size: 16
        color: Style.secondary
    }

    background: Rectangle {
        radius: Style.radius
        color: Style.panelColor
        border.color: picker.hovered ? Style.secondary : Style.hairline

        FocusRing {
            shown: picker.visualFocus
        }
    }

    delegate: MenuRow {
        required property string modelData

        width: ListView.view ? ListView.view.width : 0
        count: picker.count
        text: modelData
        highlighted: picker.highlightedIndex === index
        marked: picker.currentIndex === index
    }

    popup: Popup {
        y: picker.height + 4
        width: picker.width
        height: Math.min(contentItem.implicitHeight + 2 * padding, 420)
        padding: 6
        margins: 8
        scale: Style.zoom
        transformOrigin: Popup.TopLeft
        onClosed: {
            if (picker.activeFocus)
                Assistive.highlight(picker);
            if (picker.activeFocus && !picker.visualFocus)
                picker.pointedAt();
        }

        background: Rectangle {
            radius: 8
            color: Style.panelColor
            border.color: Style.hairline
        }

        contentItem: ListView {
            implicitHeight: contentHeight
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            // Rows that are destroyed together with the picker make Qt tell assistive programs of what
            // is gone already, and crash.
            model: picker.popup.visible ? picker.delegateModel : null
            currentIndex: picker.highlightedIndex
            highlightMoveDuration: 0
            onCurrentItemChanged: Assistive.highlight(currentItem)
            ScrollBar.vertical: ThinScrollBar {}
        }
    }
}
