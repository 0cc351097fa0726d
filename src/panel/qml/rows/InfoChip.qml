import QtQuick
import Tamberline.Controls
import Tamberline.Views

// A label and its value on a rounded background.
Rectangle {
    id: infoChip

    required property infoChip chip

    color: Theme.field
    implicitHeight: line.implicitHeight + 4
    implicitWidth: line.implicitWidth + 12
    radius: 4

    LineLayout {
        id: line

        anchors.verticalCenter: parent.verticalCenter
        spacing: 4
        width: parent.width - x * 2
        x: 6

        TextLine {
            color: Theme.secondary
            text: infoChip.chip.label
        }
        TextLine {
            text: infoChip.chip.value
            LineLayout.isElastic: true
        }
    }
}
