import QtQuick
import Tamberline.Controls
import Tamberline.Views

// The highlight of a row that a search jumped to: it throbs, then fades. A row that is created
// while it is highlighted throbs from the start.
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
        running: !overlay.isThrobbing && overlay.opacity > 0 // runs until it is invisible
        target: overlay
        to: 0
    }
}
