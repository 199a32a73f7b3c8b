import QtQuick

// A message that comes by itself, for assistive programs: they read it out when it shows, so it shows
// anew whenever it changes.
Item {
    id: region

    required property string message

    anchors.fill: parent
    visible: false
    Accessible.role: Accessible.Notification
    Accessible.name: message

    onMessageChanged: {
        visible = false;
        soon.restart();
    }
    Component.onCompleted: soon.restart()

    // Once for all that changes in one turn.
    Timer {
        id: soon
        interval: 0
        onTriggered: region.visible = region.message !== ""
    }
}
