import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A row for something that draws power from a port without a data connection.
Stack {
    id: row

    required property rowAnswer answer
    required property chargingOnlyRow content

    spacing: 2

    RowLine {
        width: parent.width

        SymbolIcon {
            color: StatusColors.marks.of(Views.Yellow)
            name: "bolt.fill"
            LineLayout.isLeading: true
        }
        TextLine {
            font: Theme.captionFont
            text: row.content.title
            LineLayout.isElastic: true
        }
        BadgeView {
            badge: row.content.badge
            LineLayout.isTrailing: true
        }
        AnswerMark {
            answer: row.answer
            visible: row.answer.isShown
            LineLayout.isTrailing: true
        }
    }
    Paragraph {
        color: Theme.secondary
        text: row.content.detail
        width: parent.width - x - Theme.chevronWidth
        x: Theme.textIndent
    }
}
