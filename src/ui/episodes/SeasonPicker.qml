import QtQuick
import Vantor.Style
import Vantor.Ui

Picker {
    id: picker

    required property EpisodeListModel episodes

    name: qsTr("Season")
    model: episodes.seasons
    implicitHeight: 36
    font: Style.font(13)
    onActivated: index => episodes.chooseSeason(index)

    function follow() {
        currentIndex = episodes.seasonRow;
    }

    onModelChanged: follow()
    Component.onCompleted: follow()

    Connections {
        target: picker.episodes

        function onSeasonRowChanged() {
            picker.follow();
        }
    }
}
