import QtQuick
import Vantor.Style

Text {
    font: Style.body
    color: Style.focusWhite
    textFormat: Text.PlainText
    // Names of right-to-left scripts too.
    horizontalAlignment: Text.AlignLeft
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
