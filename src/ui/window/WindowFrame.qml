import QtQuick
import Vantor.Style
import Vantor.Ui

// The window's border: a line, and edges that resize it. It lies above open sheets, and while there
// is one, it also stands in for the header.
Item {
    id: frame

    required property WindowActions window
    property bool resizable: true
    property bool sheetOpen: false
    readonly property int grip: 6

    Loader {
        active: frame.sheetOpen
        width: parent.width
        // A window that is too small has its sheets reduced, and this with them.
        height: Style.headroom * Math.min(1, Style.zoom)

        sourceComponent: WindowDrag {
            window: frame.window

            FrameButtons {
                anchors.right: parent.right
                anchors.rightMargin: 12
                y: 21
                window: frame.window
            }
        }
    }

    Rectangle {
        visible: !frame.window.maximized
        anchors.fill: parent
        color: "transparent"
        border.color: Style.hairline
    }

    Repeater {
        model: !frame.resizable || frame.window.maximized ? [] : [
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
