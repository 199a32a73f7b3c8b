import QtQuick
import Vantor.Style

TVButton {
    plainColor: Style.mint
    plainTextColor: Style.canvas
    font: Style.headline
}
