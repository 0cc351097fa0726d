import QtQuick
import Tamberline.Controls

// The background and padding of a box that floats above the panel.
Popup {
    id: popup

    default property alias content: column.data

    height: column.implicitHeight + 16
    width: column.implicitWidth + 20
    z: 1

    Rectangle {
        anchors.fill: parent
        border.color: Theme.separator
        border.width: 1
        color: Theme.window
        radius: 8
    }
    Column {
        id: column

        spacing: 4
        x: 10
        y: 8
    }
}
