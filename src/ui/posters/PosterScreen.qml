import QtQuick
import Vantor.Style
import Vantor.Ui

// Movies, shows, search results and the list of favourites.
Browsable {
    id: screen

    required property Views views
    required property PersistentVideoOverlay overlay

    onBrowse: Keyboard.give(browser.item as Item ?? grid)

    // Arrows and Return are for the posters of a section that was just entered.
    Connections {
        target: screen.views.shell

        function onSectionChanged() {
            column.focus = true;
            grid.focus = true;
        }
    }

    CategoryRail {
        id: rail
        anchors.left: parent.left
        height: parent.height
        width: visible ? 178 : 0
        visible: screen.views.categories.offered
        categories: screen.views.categories
    }

    FocusScope {
        id: column
        anchors.left: rail.right
        anchors.right: parent.right
        height: parent.height
        focus: true

        StatusStrip {
            id: status
            width: parent.width
            line: screen.views.statusView
        }

        HeroPanel {
            id: hero
            anchors.top: status.bottom
            width: parent.width
            views: screen.views
            overlay: screen.overlay
        }

        PosterGrid {
            id: grid
            anchors.top: hero.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            focus: true
            // An empty one too, so that the keys have a place.
            visible: screen.views.posters.content !== PosterView.Episodes
            items: screen.views.items
            view: screen.views.posters
            shell: screen.views.shell
            artwork: screen.views.artwork

            DrawnOnce {
                wanted: screen.views.player.surfaceVisible
            }
        }

        OnDemand {
            anchors.centerIn: grid
            visible: wanted
            wanted: screen.views.posters.content === PosterView.Empty

            sourceComponent: EmptyStateCard {
                emptyState: screen.views.emptyState
                onConnectChosen: screen.views.shell.connectProvider()
            }
        }

        Loader {
            id: browser
            anchors.fill: grid
            active: screen.views.posters.content === PosterView.Episodes
            onLoaded: Keyboard.give(item as Item)
            onActiveChanged: if (!active)
                Keyboard.give(grid)

            sourceComponent: EpisodeBrowser {
                episodes: screen.views.episodes
            }
        }
    }
}
