import QtQuick
import Tamberline

// The adapter on its card.
CardSegment {
    id: segment

    required property var content

    topPadding: 4

    Rectangle {
        color: "transparent"
        height: row.height + 12
        width: parent.width

        Rectangle {
            anchors.fill: parent
            color: Theme.fills.yellow
            opacity: 0.07
            radius: 6
        }
        ChargerRow {
            id: row

            content: segment.content.row
            width: parent.width - 16
            x: 8
            y: 6
        }
    }
}
