import QtQuick
import Tamberline.Controls
import Tamberline.Views

// Throbs over the row that a search led to, and fades. A row that is made for its highlight throbs
// from the start.
Rectangle {
    id: overlay

    required property int phase
    readonly property bool isThrobbing: phase === Views.Throbbing

    color: Theme.accent
    opacity: 0
    radius: 6

    SequentialAnimation {
        loops: Animation.Infinite
        running: overlay.isThrobbing

        NumberAnimation {
            duration: 500
            easing.type: Easing.InOutQuad
            property: "opacity"
            target: overlay
            to: 0.4
        }
        NumberAnimation {
            duration: 500
            easing.type: Easing.InOutQuad
            property: "opacity"
            target: overlay
            to: 0
        }
    }
    NumberAnimation {
        duration: 400
        easing.type: Easing.OutQuad
        property: "opacity"
        running: !overlay.isThrobbing && overlay.opacity > 0 // to its end, whenever the phase ends
        target: overlay
        to: 0
    }
}
