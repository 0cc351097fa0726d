import QtQuick
import Tamberline
import Tamberline.Controls

// Shows which part of the list is visible, and can be dragged to another part.
Item {
    id: bar

    required property PanelList list
    required property real visibleHeight
    readonly property real range: list.fullHeight
    readonly property real start: list.originY - list.roomAbove
    readonly property real travel: visibleHeight - handle.height

    anchors.right: parent.right
    height: visibleHeight
    visible: list.visible && Sizing.listScrolls
    width: 11 // as wide as the margin beside the cards

    Rectangle {
        id: handle

        anchors.right: parent.right
        anchors.rightMargin: 3
        color: Theme.text
        height: Math.max(24, bar.visibleHeight * Math.min(1, bar.visibleHeight / Math.max(1, bar.range)))
        opacity: bar.list.moving || mouse.containsMouse || mouse.pressed ? 0.5 : 0.3
        radius: width / 2
        width: 5
        y: (bar.list.contentY - bar.start) / Math.max(1, bar.range - bar.visibleHeight) * bar.travel
    }
    MouseArea {
        id: mouse

        property real grip

        anchors.fill: parent
        hoverEnabled: true
        onPositionChanged: event => bar.list.contentY = pressed ? bar.start + Math.max(0, Math.min(1, (event.y - grip) / Math.max(1, bar.travel))) * (bar.range - bar.visibleHeight) : bar.list.contentY
        onPressed: event => grip = event.y >= handle.y && event.y <= handle.y + handle.height ? event.y - handle.y : handle.height / 2
    }
}
