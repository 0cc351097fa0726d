import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A Thunderbolt device.
Stack {
    id: row

    required property tbDeviceRow content
    required property rowAnswer answer
    required property bool canExpand
    required property bool isExpanded

    spacing: 8

    RowLine {
        width: parent.width

        SymbolIcon {
            color: StatusColors.inks.of(Views.Accent)
            name: row.content.icon
            opacity: 0.8
            LineLayout.isLeading: true
        }
        NameLabel {
            name: row.content.name
        }
        BadgeView {
            badge: row.content.modeBadge
        }
        BadgeView {
            badge: row.content.warningBadge
        }
        TextLine {
            color: Theme.secondary
            text: row.content.ratedDraw
            LineLayout.isTrailing: true
        }
        AnswerMark {
            answer: row.answer
            visible: row.answer.isShown
            LineLayout.isTrailing: true
        }
        Chevron {
            isExpanded: row.isExpanded
            visible: row.canExpand
            LineLayout.isPinned: true
        }
    }
    Loader {
        active: row.content.hasSpeedBar
        visible: active
        width: parent.width

        sourceComponent: SpeedBarRow {
            speedBar: row.content.speedBar // qmllint disable unqualified
        }
    }
}
