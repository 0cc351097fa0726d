import QtQuick
import Tamberline
import Tamberline.Controls

// Shows which part of the list is visible.
Rectangle {
    id: bar

    required property PanelList list
    required property real visibleHeight
    readonly property real range: list.fullHeight
    readonly property real share: Math.min(1, visibleHeight / Math.max(1, range))

    anchors.right: parent.right
    anchors.rightMargin: 3
    color: Theme.text
    height: Math.max(24, visibleHeight * share)
    opacity: list.moving ? 0.35 : 0.18
    radius: width / 2
    visible: list.visible && share < 1
    width: 5
    y: (list.contentY - list.originY + list.roomAbove) / Math.max(1, range - visibleHeight) * (visibleHeight - height)
}
