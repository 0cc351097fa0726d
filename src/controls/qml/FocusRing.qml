import QtQuick
import Tamberline.Controls

// Outlines `item` while it has keyboard focus.
Rectangle {
    required property Item item
    readonly property bool isFocused: item.Window.active && item.Window.activeFocusItem === item

    anchors.fill: parent
    border.color: Theme.accent
    border.width: isFocused ? 2 : 0
    color: "transparent"
    radius: 6
    visible: isFocused
}
