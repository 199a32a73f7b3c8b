import Vantor.Ui

Picker {
    required property ChannelView channels

    name: qsTr("Group")
    model: channels.groups
    currentIndex: channels.group
    displayText: channels.groupName
    onActivated: index => channels.chooseGroup(index)
}
