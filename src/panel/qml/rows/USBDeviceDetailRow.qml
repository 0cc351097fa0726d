import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A USB device with its speed, its power and its volumes.
Stack {
    id: row

    required property usbDeviceDetailRow content
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
        TextLine {
            color: StatusColors.inks.of(row.content.speedColor)
            text: row.content.speedText
            tooltip: row.content.speedTooltip
            LineLayout.isTrailing: true
        }
        SymbolButton {
            id: explain

            color: StatusColors.inks.of(Views.Orange)
            tooltip: row.content.speedNote.title
            size: Theme.symbolSize
            symbol: "arrow.up.circle"
            visible: row.content.speedNote.title !== ""
            LineLayout.isTrailing: true
            onTriggered: Popover.toggle(explain, row.content.speedNote.title, row.content.speedNote.note, row.answer.text, speedBar)
        }
        TextLine {
            color: Theme.secondary
            text: row.content.hubTotal.text
            tooltip: row.content.hubTotal.tooltip
            LineLayout.isTrailing: true
        }
        AnswerMark {
            answer: row.answer
            visible: row.answer.isShown && (row.answer.needsAttention || !explain.visible)
            LineLayout.isTrailing: true
        }
        Chevron {
            isExpanded: row.isExpanded
            visible: row.canExpand
            LineLayout.isPinned: true
        }
    }
    Loader {
        id: speedBar

        active: row.content.hasSpeedBar
        visible: active
        width: parent.width

        sourceComponent: SpeedBarRow {
            speedBar: row.content.speedBar // qmllint disable unqualified
        }
    }
    Loader {
        active: row.content.hasPowerBar
        visible: active
        width: parent.width

        sourceComponent: PowerBarRow {
            powerBar: row.content.powerBar // qmllint disable unqualified
        }
    }
    Repeater {
        model: ValueListModel {
            values: row.content.volumes
        }

        BenchmarkRow {
            required property volumeRow value

            volume: value
            width: row.width // qmllint disable unqualified
        }
    }
}
