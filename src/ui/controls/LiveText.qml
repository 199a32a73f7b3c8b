import QtQuick
import Vantor.Style
import Vantor.Ui

// A text that assistive programs read out when it comes.
StyledText {
    id: live

    Accessible.ignored: true

    LiveRegion {
        message: live.text
    }
}
