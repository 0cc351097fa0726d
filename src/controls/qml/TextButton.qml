import QtQuick
import Tamberline.Controls

// A button with a text label.
Item {
    id: button

    required property string text

    signal triggered

    activeFocusOnTab: enabled
    implicitHeight: label.implicitHeight + 8
    implicitWidth: label.implicitWidth + 12
    opacity: enabled ? 1 : 0.4
    Accessible.focusable: enabled
    Accessible.name: text
    Accessible.role: Accessible.Button
    Accessible.onPressAction: if (enabled) triggered()
    Keys.onEnterPressed: triggered()
    Keys.onReturnPressed: triggered()
    Keys.onSpacePressed: triggered()

    Rectangle {
        anchors.fill: parent
        color: Theme.text
        opacity: mouse.pressed ? 0.14 : 0.07
        radius: 6
        visible: hover.hovered && button.enabled
    }
    TextLine {
        id: label

        anchors.centerIn: parent
        font: Theme.captionFont
        text: button.text
        Accessible.ignored: true
    }
    FocusRing {
        item: button
    }
    HoverHandler {
        id: hover
    }
    MouseArea {
        id: mouse

        anchors.fill: parent
        onClicked: button.triggered()
    }
}
