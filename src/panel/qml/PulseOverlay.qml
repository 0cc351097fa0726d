import QtQuick
import Tamberline

// Throbs over the row that a search led to, and fades.
Rectangle {
    id: overlay

    required property string phase

    color: Theme.accent
    opacity: 0
    radius: 6
    states: [
        State {
            name: "throbbing"
        },
        State {
            name: "fading"
        }
    ]
    transitions: [
        Transition {
            to: "throbbing"

            SequentialAnimation {
                loops: Animation.Infinite

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
        },
        Transition {
            to: "fading"

            NumberAnimation {
                duration: 400
                easing.type: Easing.OutQuad
                property: "opacity"
                target: overlay
                to: 0
            }
        }
    ]
    state: phase
}
