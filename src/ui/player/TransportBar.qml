import QtQuick
import QtQuick.Layouts
import Vantor.Style
import Vantor.Ui

ColumnLayout {
    id: bar

    required property TransportControls transport

    spacing: 7
    // A skip by key goes on without it.
    Component.onDestruction: if (position.pressed)
        transport.abandonSeek()

    // Time runs from left to right wherever one is.
    RowLayout {
        LayoutMirroring.enabled: false
        LayoutMirroring.childrenInherit: true
        spacing: 8
        Layout.fillWidth: true

        StyledText {
            text: bar.transport.positionText
            font: Style.font(10)
        }

        ThinSlider {
            id: position
            Layout.fillWidth: true
            from: 0
            to: bar.transport.sliderEnd
            stepSize: 10
            snapMode: ThinSlider.NoSnap
            value: bar.transport.sliderValue
            Accessible.name: qsTr("Position")
            onPressedChanged: pressed ? bar.transport.beginSeek() : bar.transport.endSeek()
            onMoved: bar.transport.dragTo(value)

            // A drag by the user ends the binding of the value.
            Connections {
                target: bar.transport

                function onPositionChanged() {
                    position.value = bar.transport.sliderValue;
                }
            }
        }

        StyledText {
            text: bar.transport.durationText
            font: Style.font(10)
        }
    }

    RowLayout {
        spacing: 8
        Layout.fillWidth: true

        Icon {
            symbol: "speaker.wave.2"
            size: 18
            Layout.preferredWidth: size
        }

        ThinSlider {
            Layout.preferredWidth: 80
            Layout.minimumWidth: 40
            from: 0
            to: 100
            stepSize: 5
            snapMode: ThinSlider.NoSnap
            value: bar.transport.volume
            Accessible.name: qsTr("Volume")
            onMoved: bar.transport.volume = value
        }

        Item {
            Layout.fillWidth: true
        }

        Row {
            ChoiceButton {
                symbol: "waveform"
                help: qsTr("Audio tracks")
                enabled: bar.transport.audioEnabled
                choices: bar.transport.audio
                current: bar.transport.audioChoice
                onChosen: choice => bar.transport.chooseAudio(choice.id)
            }

            ChoiceButton {
                symbol: "captions.bubble"
                help: qsTr("Subtitles")
                choices: bar.transport.subtitles
                current: bar.transport.subtitleChoice
                onChosen: choice => bar.transport.chooseSubtitle(choice.id)
            }

            ChoiceButton {
                symbol: "speedometer"
                help: qsTr("Playback speed")
                choices: bar.transport.speeds
                current: bar.transport.speedChoice
                onChosen: choice => bar.transport.chooseSpeed(choice.rate)
            }

            ChoiceButton {
                symbol: "hifispeaker"
                help: qsTr("Sound output")
                menuWidth: 280
                choices: bar.transport.outputs
                current: bar.transport.outputChoice
                onChosen: choice => bar.transport.chooseOutput(choice.id)
            }

            ChoiceButton {
                symbol: "timer"
                help: qsTr("Sound and picture")
                menuWidth: 240
                choices: bar.transport.delays
                current: bar.transport.delayChoice
                onChosen: choice => bar.transport.chooseDelay(choice.delay)
            }
        }
    }
}
