import QtQuick
import Tamberline.Controls

// The background of a box that floats above the panel: an arrow to what it explains, and a soft
// shadow of several faint layers, since the software renderer has no blur.
Popup {
    id: popup

    default property alias content: column.data

    height: column.implicitHeight + 16
    width: column.implicitWidth + 20
    z: 1

    Repeater {
        model: 5

        Rectangle {
            required property int index

            anchors.fill: parent
            anchors.bottomMargin: anchors.margins - 3
            anchors.margins: -index - 1
            color: "black"
            opacity: Theme.isDark ? 0.09 : 0.035
            radius: 9 + index
        }
    }
    Rectangle {
        border.color: Theme.separator
        border.width: 1
        color: Theme.card
        height: 11
        rotation: 45
        width: 11
        x: popup.arrowX - width / 2
        y: popup.isBelow ? -height / 2 : parent.height - height / 2
    }
    Rectangle {
        anchors.fill: parent
        border.color: Theme.separator
        border.width: 1
        color: Theme.card
        radius: 8
    }
    Rectangle {
        color: Theme.card
        height: 9
        rotation: 45
        width: 9
        x: popup.arrowX - width / 2
        y: popup.isBelow ? -height / 2 + 1 : parent.height - height / 2 - 1
    }
    Column {
        id: column

        spacing: 4
        x: 10
        y: 8
    }
}
