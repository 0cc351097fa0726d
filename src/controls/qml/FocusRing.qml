import QtQuick
import Tamberline.Controls

// Outlines `item` while it has keyboard focus.
Rectangle {
    required property Item item

    anchors.fill: parent
    border.color: Theme.accent
    border.width: 2
    color: "transparent"
    radius: 6
    visible: item.Window.active && item.Window.activeFocusItem === item
}
