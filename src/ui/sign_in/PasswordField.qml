import QtQuick
import Vantor.Style
import Vantor.Ui

// A field whose typed text stays out of the accessibility tree. With Qt 6.4 a password field gives
// its text away there, and whatever says that it edits a password loses its name. So assistive
// programs see a named group with a nameless, textless password entry, and not the field in it. They are
// told that the entry has the focus; what they are told of the field they do not find.
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
        id: entry
        anchors.fill: parent
        Accessible.role: Accessible.EditableText
        Accessible.passwordEdit: true
        Accessible.description: scope.name
        Accessible.focusable: true
        Accessible.focused: field.activeFocus

        InputField {
            id: field
            anchors.fill: parent
            focus: true
            placeholderText: scope.name
            echoMode: TextInput.Password
            inputMethodHints: Qt.ImhSensitiveData | Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
            Accessible.ignored: true
            onActiveFocusChanged: if (activeFocus)
                Assistive.highlight(entry)
            onTextEdited: scope.textEdited()
            onAccepted: scope.accepted()
        }
    }
}
