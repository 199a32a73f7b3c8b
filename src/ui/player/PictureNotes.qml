import QtQuick
import Vantor.Style
import Vantor.Ui

// What is told over the picture, wherever that is: one below the other from its top, and at its bottom
// the next episode.
Item {
    id: notes

    required property Views views
    // The width that buttons have at the end of the top.
    required property real taken
    // Of the controls in full screen.
    required property real zoom
    readonly property PlayerRemote remote: views.remote
    readonly property int textSize: Style.distantSize(height)

    Column {
        id: strips
        width: parent.width

        OnDemand {
            anchors.left: parent.left
            width: parent.width - notes.taken
            visible: wanted
            wanted: notes.remote.watching && notes.views.banner.shown && !notes.remote.chooser

            sourceComponent: BannerPanel {
                banner: notes.views.banner
                artwork: notes.views.artwork
                textSize: notes.textSize
            }
        }

        Interruption {
            player: notes.views.player
            // Elsewhere it is at the bottom, where the whole screen has its controls.
            placed: notes.remote.fullScreen
        }
    }

    OnDemand {
        id: note
        anchors.top: strips.bottom
        anchors.topMargin: notes.textSize
        anchors.right: parent.right
        anchors.rightMargin: notes.textSize + notes.taken
        // The facts are beside it, or in the small window below.
        width: (notes.remote.small ? parent.width - notes.taken : parent.width / 2) - 2 * notes.textSize
        visible: wanted
        wanted: notes.remote.watching && notes.remote.note !== ""

        sourceComponent: LiveText {
            text: notes.remote.note
            font: Style.font(notes.textSize, Font.DemiBold)
            horizontalAlignment: notes.remote.small ? Text.AlignLeft : Text.AlignRight
            wrapMode: Text.Wrap
            style: Text.Outline
            styleColor: "black"
        }
    }

    OnDemand {
        anchors.top: notes.remote.small && note.visible ? note.bottom : strips.bottom
        anchors.left: parent.left
        anchors.margins: notes.textSize
        visible: wanted
        wanted: notes.views.statistics.shown && notes.remote.watching && !notes.remote.chooser

        sourceComponent: StatisticsCard {
            statistics: notes.views.statistics
            textSize: notes.textSize
        }
    }

    OnDemand {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: notes.textSize
        // Over the controls, which only full screen has in the picture.
        anchors.bottomMargin: notes.remote.fullScreen ? 160 * notes.zoom : notes.textSize
        visible: wanted
        wanted: notes.remote.watching && !notes.remote.small && notes.views.nextEpisode.offered

        sourceComponent: NextEpisodeCard {
            next: notes.views.nextEpisode
            textSize: notes.textSize
        }
    }
}
