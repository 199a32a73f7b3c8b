import QtQuick

// A screen of entries.
FocusScope {
    // Gives the keys to the entries, whatever had them in this screen before.
    signal browse
}
