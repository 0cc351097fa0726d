import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The power adapter in one line.
RowLine {
    id: row

    required property rowAnswer answer
    required property chargerRow content

    alignsBaselines: true

    Symbol {
        color: row.content.isCharging ? StatusColors.marks.of(Views.Yellow) : Theme.secondary
        implicitHeight: Theme.smallSymbolSize
        implicitWidth: Theme.smallSymbolSize
        name: "bolt.horizontal"
        LineLayout.isLeading: true
    }
    NameLabel {
        name: row.content.name
    }
    LineLayout {
        alignsBaselines: true
        spacing: 4
        visible: row.content.rated !== ""
        LineLayout.isTrailing: true

        SymbolIcon {
            color: StatusColors.inks.of(Views.Green)
            name: "arrow.up.circle.fill"
            visible: row.content.isCharging
        }
        TextLine {
            color: row.content.isCharging ? StatusColors.inks.of(Views.Green) : Theme.secondary
            text: row.content.rated
            tooltip: row.content.tooltip
        }
    }
    AnswerMark {
        answer: row.answer
        visible: row.answer.isShown
        LineLayout.isTrailing: true
    }
}
