import QtQuick
import Vantor.Style

Text {
    font: Style.body
    color: Style.focusWhite
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
