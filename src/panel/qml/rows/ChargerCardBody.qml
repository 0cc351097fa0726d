import QtQuick
import Tamberline
import Tamberline.Views

// The power adapter in its card.
CardSegment {
    id: segment

    required property chargerRow content

    areaBottom: bottomPadding - 1
    areaLeft: 23
    areaRight: 23
    areaTop: topPadding - 1
    topPadding: 4

    Rectangle {
        color: "transparent"
        height: row.height + 12
        width: parent.width - x
        x: -segment.inset

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
            width: parent.width - x
            x: segment.inset
            y: 6
        }
    }
}
