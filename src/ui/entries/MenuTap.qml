import QtQuick

// What asks for an entry's menu: a click with the right button, or a finger that stayed. The menu
// comes when the finger goes, since its going would be a tap beside the menu.
TapHandler {
    id: handler

    property bool stayed: false
    property point place

    signal asked(place: point)

    acceptedButtons: Qt.RightButton
    // A finger has no buttons, so that each of its taps comes here too.
    onTapped: (eventPoint, button) => {
        if (button === Qt.RightButton)
            asked(eventPoint.position);
    }
    onLongPressed: {
        stayed = !(point.pressedButtons & Qt.RightButton);
        place = point.pressPosition;
    }
    onPressedChanged: {
        if (pressed)
            stayed = false;
        else if (stayed)
            gone.start();
    }
    // Comes after the change of `pressed`.
    onCanceled: gone.stop()

    readonly property Timer gone: Timer {
        interval: 0
        onTriggered: handler.asked(handler.place)
    }
}
