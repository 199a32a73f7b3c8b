import QtQuick
import Vantor.Style

// Its text stays out of the accessibility tree: see unread_password.h.
InputField {
    required property string name

    placeholderText: name
    // Without it Qt leaves the field out of the tree.
    Accessible.name: name
    echoMode: TextInput.Password
    inputMethodHints: Qt.ImhSensitiveData | Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
}
