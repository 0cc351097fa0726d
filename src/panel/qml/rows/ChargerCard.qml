import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The card of an adapter that is not on a USB-C port, as one row of the list.
CardSegment {
    id: segment

    required property chargerCard content
    required property int pulse

    Item {
        height: line.height
        width: parent.width

        PulseOverlay {
            anchors.fill: parent
            anchors.margins: -4
            phase: segment.pulse
        }
        RowLine {
            id: line

            minElasticWidth: Theme.minTitleWidth
            spacing: 8
            width: parent.width

            SymbolIcon {
                color: segment.content.header.isCharging ? StatusColors.marks.of(Views.Yellow) : Theme.secondary
                name: segment.content.header.icon
                LineLayout.isLeading: true
            }
            TextLine {
                font: Theme.subheadlineFont
                text: segment.content.header.title
                LineLayout.isElastic: true
            }
            TextLine {
                color: Theme.secondary
                text: segment.content.header.port
                tooltip: segment.content.header.portTooltip
                LineLayout.isTrailing: true
            }
        }
    }
    Item {
        height: row.height + 12
        width: parent.width - x
        x: -segment.inset
        y: line.height + 6

        Rectangle {
            anchors.fill: parent
            color: StatusColors.fills.of(Views.Yellow)
            opacity: 0.07
            radius: 6
        }
        ChargerRow {
            id: row

            answer: segment.answer
            content: segment.content.row
            width: parent.width - x
            x: segment.inset
            y: 6
        }
    }
}
