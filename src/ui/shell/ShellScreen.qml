import QtQuick
import Vantor.Style
import Vantor.Ui

// The whole browsing screen.
FocusScope {
    id: screen

    required property Views views
    required property WindowActions window
    // What the whole screen has over its picture is as large as it allows, since it is far away.
    readonly property real distantZoom: views.remote.fullScreen ? Math.max(1, height / 900) : 1

    // The keys that nothing below took.
    Keys.onEscapePressed: {
        if (!views.remote.escape())
            views.shell.escape();
    }
    Keys.onPressed: event => {
        // The small window has no room for them.
        if (event.text === "?" && !views.remote.small)
            keyList.open();
        else
            event.accepted = views.remote.press(event.key, event.modifiers, event.isAutoRepeat);
    }
    Keys.onSpacePressed: event => {
        event.accepted = event.modifiers === Qt.NoModifier;
        if (event.accepted)
            views.player.togglePause();
    }

    HeldKeys {
        window: screen.Window.window
    }

    /// Gives the keys to the entries.
    function browse() {
        if (picture.item)
            return Keyboard.give(picture);
        const shown = content.item as Browsable;
        if (shown)
            shown.browse();
        else
            Keyboard.give(content);
    }

    // Its keys come through the player, whatever control opened it.
    Connections {
        target: screen.views.remote

        function onChooserChanged() {
            if (screen.views.remote.chooser)
                screen.watch();
        }
    }

    /// Gives the keys to the player, and to none of its controls.
    function watch() {
        const player = picture.item ?? content.item;
        Keyboard.give(player);
        const passed = [];
        let item = screen.Window.activeFocusItem;
        for (; item && item !== player; item = item.parent)
            passed.push(item);
        if (item)
            passed.forEach(control => control.focus = false);
    }

    // What had the keys may be gone, or hidden: then only something around it has them, where no
    // key does anything.
    Connections {
        target: screen.Window.window

        function onActiveFocusItemChanged() {
            rescue.restart();
        }
    }

    Connections {
        target: screen.Window.activeFocusItem

        function onVisibleChanged() {
            rescue.restart();
        }
    }

    Timer {
        id: rescue
        interval: 0
        onTriggered: screen.rescueFocus()
    }

    function rescueFocus() {
        // In a window behind others nothing has the keys, and they come back to where they were.
        if (!screen.Window.active)
            return;
        const holder = screen.Window.activeFocusItem;
        const shown = holder && holder.visible && holder.enabled;
        if (shown && (holder.activeFocusOnTab || holder === content.item && !(holder as Browsable) || holder === picture.item))
            return;
        for (let item = holder; item; item = item.parent)
            if (item === screen)
                return browse();
        if (!holder || holder === screen.Window.contentItem)
            browse();
    }

    Sidebar {
        id: sidebar
        visible: !screen.views.remote.pictureOnly
        anchors.left: parent.left
        width: 198
        height: parent.height
        shell: screen.views.shell
        window: screen.window
        onChosen: screen.browse()
    }

    Item {
        visible: !screen.views.remote.pictureOnly
        anchors.left: sidebar.right
        anchors.right: parent.right
        height: parent.height

        ShellHeader {
            id: header
            width: parent.width
            shell: screen.views.shell
            commands: screen.views.commands
            window: screen.window
            onDone: screen.browse()
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
        filling: screen.views.remote.pictureOnly
        remote: screen.views.remote
    }

    Loader {
        id: picture
        anchors.fill: parent
        active: screen.views.remote.pictureOnly
        onLoaded: Keyboard.give(picture)
        sourceComponent: screen.views.remote.small ? smallPlayer : fullScreenPlayer
    }

    PictureNotes {
        x: videoOverlay.x
        y: videoOverlay.y
        width: videoOverlay.width
        height: videoOverlay.height
        visible: videoOverlay.placed
        views: screen.views
        zoom: screen.distantZoom
        taken: (picture.item as SmallPlayer)?.taken ?? 0
    }

    Component {
        id: fullScreenPlayer

        FullScreenPlayer {
            player: screen.views.player
            remote: screen.views.remote
            transport: screen.views.transport
            zoom: screen.distantZoom
        }
    }

    Component {
        id: smallPlayer

        SmallPlayer {
            player: screen.views.player
            remote: screen.views.remote
            window: screen.window
        }
    }

    Loader {
        readonly property ChannelChooser chooser: screen.views.remote.chooser

        x: videoOverlay.x + (LayoutMirroring.enabled ? videoOverlay.width - width : 0)
        y: videoOverlay.y
        width: Math.max(videoOverlay.width * 0.85, Math.min(videoOverlay.width, 620))
        height: videoOverlay.height
        // By value: the panel shows the same list until it is gone.
        onChooserChanged: {
            if (chooser)
                setSource("ChannelChooserPanel.qml", { chooser: chooser, artwork: screen.views.artwork });
            else
                source = "";
        }
    }

    Loader {
        id: keyList

        function open() {
            active = true;
            (item as KeyList).open();
        }

        active: false
        sourceComponent: KeyList {}
    }
}
