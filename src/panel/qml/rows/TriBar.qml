import QtQuick
import Tamberline.Views

// A thin bar of three layers: the track, the allocated part, the used part.
Item {
    id: triBar

    required property triBar bar
    required property color color

    implicitHeight: 6

    Rectangle {
        anchors.fill: parent
        color: triBar.color
        opacity: 0.1
        radius: 3
    }
    Rectangle {
        color: triBar.color
        height: parent.height
        opacity: 0.3
        radius: 3
        visible: triBar.bar.showsCableLayer
        width: Math.max(4, parent.width * triBar.bar.cableFraction)
    }
    Rectangle {
        color: triBar.color
        height: parent.height
        opacity: 0.85
        radius: 3
        visible: triBar.bar.usedFraction > 0
        width: Math.max(4, parent.width * triBar.bar.usedFraction)
    }
}
