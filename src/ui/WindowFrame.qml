import QtQuick
import Vantor.Style
import Vantor.Ui

// The window's border: a line, and edges that resize it.
Item {
    id: frame

    required property WindowActions window
    property bool resizable: true
    readonly property int grip: 6

    visible: !window.maximized

    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.color: Style.hairline
    }

    Repeater {
        model: !frame.resizable ? [] : [
            { edges: Qt.LeftEdge, shape: Qt.SizeHorCursor },
            { edges: Qt.RightEdge, shape: Qt.SizeHorCursor },
            { edges: Qt.TopEdge, shape: Qt.SizeVerCursor },
            { edges: Qt.BottomEdge, shape: Qt.SizeVerCursor },
            { edges: Qt.LeftEdge | Qt.TopEdge, shape: Qt.SizeFDiagCursor },
            { edges: Qt.RightEdge | Qt.BottomEdge, shape: Qt.SizeFDiagCursor },
            { edges: Qt.RightEdge | Qt.TopEdge, shape: Qt.SizeBDiagCursor },
            { edges: Qt.LeftEdge | Qt.BottomEdge, shape: Qt.SizeBDiagCursor }
        ]

        delegate: MouseArea {
            required property var modelData
            readonly property int edges: modelData.edges
            readonly property bool wide: !(edges & (Qt.LeftEdge | Qt.RightEdge))
            readonly property bool tall: !(edges & (Qt.TopEdge | Qt.BottomEdge))

            x: edges & Qt.RightEdge ? frame.width - width : 0
            y: edges & Qt.BottomEdge ? frame.height - height : 0
            width: wide ? frame.width : frame.grip
            height: tall ? frame.height : frame.grip
            cursorShape: modelData.shape
            onPressed: frame.window.resize(edges)
        }
    }
}
