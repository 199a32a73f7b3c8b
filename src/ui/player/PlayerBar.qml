import QtQuick
import Vantor.Style
import Vantor.Ui

Item {
    id: bar

    required property PlayerPane player
    required property PlayerRemote remote
    property font titleFont: Style.caption

    implicitHeight: Math.max(buttons.height, title.implicitHeight) + 2 * 8

    StyledText {
        id: title
        anchors.left: parent.left
        anchors.right: buttons.left
        anchors.rightMargin: Style.gap
        anchors.verticalCenter: parent.verticalCenter
        text: bar.player.title
        font: bar.titleFont
        elide: Text.ElideRight
    }

    Row {
        id: buttons
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter

        IconButton {
            implicitHeight: 32
            symbol: bar.player.playPauseSymbol
            help: qsTr("Play / pause")
            Accessible.description: bar.player.stateName
            onClicked: bar.player.togglePause()
        }

        IconButton {
            implicitHeight: 32
            // What it does would be seen only afterwards.
            visible: !bar.remote.pictureOnly
            symbol: bar.player.expandSymbol
            help: qsTr("Expand player")
            size: 18
            onClicked: bar.player.toggleExpanded()
        }

        IconButton {
            implicitHeight: 32
            visible: bar.remote.zapping
            symbol: "list"
            help: qsTr("List of channels")
            onClicked: {
                if (bar.remote.chooser)
                    bar.remote.putChooserAway();
                else
                    bar.remote.chooseChannel();
            }
        }

        IconButton {
            implicitHeight: 32
            symbol: "picture.in.picture"
            help: qsTr("Small window")
            size: 18
            onClicked: bar.remote.toggleSmall()
        }

        IconButton {
            implicitHeight: 32
            symbol: bar.remote.fullScreenSymbol
            help: qsTr("Full screen")
            size: 22
            onClicked: bar.remote.toggleFullScreen()
        }

        IconButton {
            implicitHeight: 32
            symbol: "stop.fill"
            help: qsTr("Stop playback")
            onClicked: bar.player.stop()
        }
    }
}
