import QtQuick
import Vantor.Style

Icon {
    id: spinner

    symbol: "loading"
    size: 16
    color: Style.mint

    RotationAnimator on rotation {
        from: 0
        to: 360
        duration: 900
        loops: Animation.Infinite
        running: spinner.visible
    }
}
