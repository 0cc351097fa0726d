import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The header of the card of an adapter that is not on a USB-C port.
CardSegment {
    id: segment

    required property chargerCardHeader content
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
                color: segment.content.isCharging ? StatusColors.marks.of(Views.Yellow) : Theme.secondary
                name: segment.content.icon
                LineLayout.isLeading: true
            }
            TextLine {
                font: Theme.subheadlineFont
                text: segment.content.title
                LineLayout.isElastic: true
            }
            TextLine {
                color: Theme.secondary
                text: segment.content.port
                tooltip: segment.content.portTooltip
                LineLayout.isTrailing: true
            }
            AnswerMark {
                answer: segment.answer
                visible: segment.answer.isShown
                LineLayout.isTrailing: true
            }
        }
    }
}
