import QtQuick
import QtQuick.Layouts
import Vantor.Style
import Vantor.Ui

// The highlighted title, presented large; beside it the player, or its artwork while nothing plays.
Item {
    id: hero

    required property Views views
    required property PersistentVideoOverlay overlay
    readonly property PosterView view: views.posters

    implicitHeight: Math.max(204, side.height) + 2 * 14

    ColumnLayout {
        anchors.left: parent.left
        anchors.leftMargin: Style.inset
        anchors.right: side.left
        anchors.rightMargin: Style.inset
        y: 14
        height: 204
        spacing: 7

        StyledText {
            text: hero.view.kicker
            font: Style.font(11, Font.Bold, 1.4)
            color: Style.mint
        }

        StyledText {
            Layout.fillWidth: true
            text: hero.view.name
            font: Style.serifFont(31)
            lineHeight: 0.9
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }

        StyledText {
            Layout.fillWidth: true
            visible: text !== ""
            text: hero.view.facts
            font: Style.caption
            elide: Text.ElideRight
        }

        StyledText {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.maximumWidth: 620
            text: hero.view.description
            font: Style.callout
            lineHeight: 1.15
            wrapMode: Text.Wrap
            elide: Text.ElideRight
        }

        RowLayout {
            visible: hero.view.hasHero
            spacing: Style.gap

            TVButton {
                id: open
                selected: true
                text: hero.view.openLabel
                onClicked: hero.views.shell.activateSelection()
            }

            BookmarkButton {
                Layout.preferredHeight: open.implicitHeight
                symbol: hero.view.favoriteSymbol
                onClicked: hero.view.toggleFavorite()
            }

            TVButton {
                visible: hero.view.allShowsOffered
                text: qsTr("All shows")
                onClicked: hero.view.closeEpisodes()
            }
        }
    }

    Loader {
        id: side
        anchors.right: parent.right
        anchors.rightMargin: Style.inset
        y: 14
        sourceComponent: hero.view.showsPlayer ? player : picture

        Component {
            id: player

            PlayerArea {
                width: 285
                player: hero.views.player
                remote: hero.views.remote
                transport: hero.views.transport
                overlay: hero.overlay
            }
        }

        Component {
            id: picture

            PosterArtwork {
                width: 138
                height: 204
                visible: hero.view.hasHero
                store: hero.views.artwork
                source: hero.view.artwork
                symbol: hero.view.symbol
                name: hero.view.name

                RoundedFrame {
                    innerRadius: Style.radius
                }
            }
        }
    }
}
