import QtQuick
import Vantor.Style
import Vantor.Ui

// The typed text stays out of the accessibility tree: what assistive programs see is this item,
// which has none, and not the field in it, which with Qt 6.4 would tell them its text.
FocusScope {
    id: scope

    property alias text: field.text
    property alias placeholderText: field.placeholderText

    signal textEdited
    signal accepted

    implicitHeight: field.implicitHeight

    Accessible.role: Accessible.EditableText
    Accessible.name: placeholderText
    Accessible.passwordEdit: true
    Accessible.focusable: true

    InputField {
        id: field
        anchors.fill: parent
        focus: true
        echoMode: TextInput.Password
        inputMethodHints: Qt.ImhSensitiveData | Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
        Accessible.ignored: true
        onTextEdited: scope.textEdited()
        onAccepted: scope.accepted()
    }
}
