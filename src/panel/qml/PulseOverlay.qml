import QtQuick
import Tamberline

// Throbs over the row that a search led to, and fades. A row that is made for its highlight throbs
// from the start.
Rectangle {
    id: overlay

    required property string phase
    readonly property bool isThrobbing: phase === "throbbing"

    color: Theme.accent
    opacity: 0
    radius: 6

    SequentialAnimation on opacity {
        loops: Animation.Infinite
        running: overlay.isThrobbing

        NumberAnimation {
            duration: 500
            easing.type: Easing.InOutQuad
            to: 0.4
        }
        NumberAnimation {
            duration: 500
            easing.type: Easing.InOutQuad
            to: 0
        }
    }
    NumberAnimation on opacity {
        duration: 400
        easing.type: Easing.OutQuad
        running: !overlay.isThrobbing && overlay.opacity > 0 // to its end, whenever the phase ends
        to: 0
    }
}
