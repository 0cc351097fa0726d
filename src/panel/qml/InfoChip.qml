import QtQuick
import Tamberline

// A label and a value on a rounded background.
Rectangle {
    id: infoChip

    required property var chip

    color: Theme.field
    implicitHeight: line.implicitHeight + 4
    implicitWidth: line.implicitWidth + 12
    radius: 4

    Row {
        id: line

        anchors.centerIn: parent
        spacing: 4

        Label {
            color: Theme.secondary
            text: infoChip.chip.label
        }
        Label {
            text: infoChip.chip.value
        }
    }
}
