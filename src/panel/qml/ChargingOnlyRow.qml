import QtQuick
import Tamberline

// A port that draws power without data.
Row {
    id: row

    required property var content

    spacing: 6

    SymbolIcon {
        id: symbol

        color: Theme.fills.yellow
        name: "bolt.fill"
    }
    Column {
        spacing: 2
        width: row.width - symbol.width - row.spacing

        LineLayout {
            leastElasticWidth: Theme.leastNameWidth
            lineSpacing: 2
            spacing: 6
            width: parent.width

            TextLine {
                font: Theme.captionFont
                text: row.content.title
                LineLayout.isElastic: true
            }
            BadgeView {
                badge: row.content.badge
                LineLayout.isTrailing: true
            }
        }
        Paragraph {
            color: Theme.secondary
            text: row.content.detail
            width: parent.width
        }
    }
}
