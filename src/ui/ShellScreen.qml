import QtQuick
import Vantor.Style
import Vantor.Ui

// The whole browsing screen.
FocusScope {
    id: screen

    required property Views views
    required property WindowActions window

    // The keys that nothing below took.
    Keys.onEscapePressed: views.shell.escape()
    Keys.onSpacePressed: views.player.togglePause()

    Sidebar {
        id: sidebar
        width: 198
        height: parent.height
        shell: screen.views.shell
        window: screen.window
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

        NoticeBanner {
            id: notice
            anchors.top: header.bottom
            width: parent.width
            height: visible ? implicitHeight : 0
            text: screen.views.shell.notice
            onDismissed: screen.views.shell.clearNotice()
        }

        Loader {
            id: content
            anchors.top: notice.bottom
            anchors.bottom: footer.top
            width: parent.width
            focus: true
            sourceComponent: screen.views.shell.expanded ? expandedPlayer : screen.views.shell.showsChannels ? channels : posters
            onLoaded: item.focus = true

            Component {
                id: channels

                ChannelScreen {
                    views: screen.views
                    overlay: videoOverlay
                }
            }

            Component {
                id: posters

                PosterScreen {
                    views: screen.views
                    overlay: videoOverlay
                }
            }

            Component {
                id: expandedPlayer

                ExpandedPlayer {
                    views: screen.views
                    overlay: videoOverlay
                }
            }
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
