import QtQuick

// Made when it is first wanted, then kept: what a screen seldom shows must not hold up its first
// frame.
Loader {
    required property bool wanted

    active: false
    onWantedChanged: if (wanted)
        active = true
    Component.onCompleted: if (wanted)
        active = true
}
