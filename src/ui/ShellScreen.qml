import QtQuick
import Vantor.Style
import Vantor.Ui

// The whole browsing screen.
FocusScope {
    id: screen

    required property Views views
    required property WindowActions window
    required property bool appeared

    // The keys that nothing below took.
    Keys.onEscapePressed: views.shell.escape()
    Keys.onSpacePressed: views.player.togglePause()

    Sidebar {
        id: sidebar
        width: 198
        height: parent.height
        shell: screen.views.shell
        window: screen.window
        showsBrand: screen.appeared
        onChosen: content.forceActiveFocus(Qt.OtherFocusReason)
    }

    Item {
        id: main
        anchors.left: sidebar.right
        anchors.right: parent.right
        height: parent.height

        ShellHeader {
            id: header
            width: parent.width
            shell: screen.views.shell
            commands: screen.views.menu
            window: screen.window
            onDone: content.forceActiveFocus(Qt.OtherFocusReason)
        }

        OnDemand {
            id: notice
            anchors.top: header.bottom
            width: parent.width
            height: wanted ? implicitHeight : 0
            wanted: screen.views.shell.notice !== ""

            sourceComponent: NoticeBanner {
                text: screen.views.shell.notice
                onDismissed: screen.views.shell.clearNotice()
            }
        }

        Loader {
            id: content
            anchors.top: notice.bottom
            anchors.bottom: footer.top
            width: parent.width
            focus: true
            onFileChanged: setSource(file, { views: screen.views, overlay: videoOverlay })
            onLoaded: item.focus = true

            // By name, so that the first screen waits for none of the others.
            readonly property string file: screen.views.shell.expanded ? "ExpandedPlayer.qml" : screen.views.shell.showsChannels ? "ChannelScreen.qml" : "PosterScreen.qml"
        }

        ShellFooter {
            id: footer
            anchors.bottom: parent.bottom
            width: parent.width
            shell: screen.views.shell
        }
    }

    VideoOverlay {
        id: videoOverlay
        player: screen.views.player
        frames: screen.views.frames
    }
}
