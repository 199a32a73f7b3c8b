import QtQuick
import Vantor.Style
import Vantor.Ui

// A field whose typed text stays out of the accessibility tree. With Qt 6.4 a password field gives
// its text away there, and whatever says that it edits a password loses its name. So assistive
// programs see a named group with a nameless, textless password entry, and not the field in it.
FocusScope {
    id: scope

    required property string name
    // Not "text", which Qt would look for.
    property alias secret: field.text

    signal textEdited
    signal accepted

    implicitHeight: field.implicitHeight
    Accessible.role: Accessible.Grouping
    Accessible.name: name

    Item {
        anchors.fill: parent
        Accessible.role: Accessible.EditableText
        Accessible.passwordEdit: true
        Accessible.focusable: true

        InputField {
            id: field
            anchors.fill: parent
            focus: true
            placeholderText: scope.name
            echoMode: TextInput.Password
            inputMethodHints: Qt.ImhSensitiveData | Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
            Accessible.ignored: true
            onTextEdited: scope.textEdited()
            onAccepted: scope.accepted()
        }
    }
}
