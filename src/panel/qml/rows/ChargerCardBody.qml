import QtQuick
import Tamberline
import Tamberline.Views

// The power adapter in its card.
CardSegment {
    id: segment

    required property chargerRow content

    topPadding: 4

    Rectangle {
        color: "transparent"
        height: row.height + 12
        width: parent.width

        Rectangle {
            anchors.fill: parent
            color: StatusColors.fills.of(Views.Yellow)
            opacity: 0.07
            radius: 6
        }
        ChargerRow {
            id: row

            answer: segment.answer
            content: segment.content
            width: parent.width - 16
            x: 8
            y: 6
        }
    }
}
