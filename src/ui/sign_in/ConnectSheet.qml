import QtQuick
import QtQuick.Layouts
import Vantor.Style
import Vantor.Ui

Sheet {
    id: sheet

    required property Views views
    readonly property ConnectView view: views.connectView

    name: qsTr("Sign in")
    visible: view.shown
    width: 480
    height: column.implicitHeight + 2 * 28
    firstFocus: view.username === "" ? username : password
    onEscaped: view.close()

    ColumnLayout {
        id: column
        x: 28
        y: 28
        width: 480 - 2 * 28
        spacing: 18

        RowLayout {
            Layout.fillWidth: true

            StyledText {
                text: "Vantor TV"
                font: Style.title
                Layout.fillWidth: true
            }

            TVButton {
                text: qsTr("Close")
                enabled: sheet.view.closable
                onClicked: sheet.view.close()
            }
        }

        StyledText {
            text: qsTr("Sign in with your existing Vantor TV account.")
            Layout.fillWidth: true
            wrapMode: Text.Wrap
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: Style.gap

            InputField {
                id: username
                Layout.fillWidth: true
                placeholderText: qsTr("Username")
                text: sheet.view.username
                enabled: !sheet.view.working
                Accessible.name: placeholderText
                inputMethodHints: Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase
                onTextEdited: sheet.view.username = text
                onAccepted: {
                    if (sheet.view.password === "")
                        password.forceActiveFocus(Qt.TabFocusReason);
                    else
                        sheet.view.connectAccount();
                }
            }

            PasswordField {
                id: password
                Layout.fillWidth: true
                name: qsTr("Password")
                text: sheet.view.password
                enabled: !sheet.view.working
                onTextEdited: sheet.view.password = text
                onAccepted: sheet.view.connectAccount()
            }
        }

        LiveText {
            text: sheet.view.error
            visible: text !== ""
            font: Style.caption
            color: Style.warning
            wrapMode: Text.Wrap
            Layout.fillWidth: true
        }

        StyledText {
            text: qsTr("Your login is stored securely in this Mac's Keychain.")
            font: Style.caption
            color: Style.secondary
            wrapMode: Text.Wrap
            Layout.fillWidth: true
        }

        RowLayout {
            spacing: 12

            ProminentButton {
                text: qsTr("Connect")
                leftPadding: 28
                rightPadding: 28
                enabled: sheet.view.canConnect
                onClicked: sheet.view.connectAccount()
            }

            Spinner {
                visible: sheet.view.working
                Accessible.ignored: false
                Accessible.role: Accessible.Animation
                Accessible.name: qsTr("Signing in")
            }
        }
    }
}
