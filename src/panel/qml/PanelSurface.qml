import QtQuick
import Tamberline.Controls

// An area in the colour of the panel. Everything below a rectangle with round corners is painted too, but
// nothing below one with square corners. So only the ends are round rectangles.
Item {
    id: surface

    property bool isRoundAtTop: true
    property real radius: 0

    Rectangle {
        color: Theme.window
        height: 2 * radius
        radius: surface.radius
        visible: surface.isRoundAtTop && radius > 0
        width: parent.width
    }
    Rectangle {
        color: Theme.window
        height: 2 * radius
        radius: surface.radius
        visible: radius > 0
        width: parent.width
        y: parent.height - height
    }
    Rectangle {
        color: Theme.window
        height: parent.height - y - surface.radius
        width: parent.width
        y: surface.isRoundAtTop ? surface.radius : 0
    }
}
