import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A row for something that draws power from a port without a data connection.
Item {
    id: row

    required property rowAnswer answer
    required property chargingOnlyRow content

    implicitHeight: Math.max(symbol.height, lines.height)

    SymbolIcon {
        id: symbol

        color: StatusColors.fills.of(Views.Yellow)
        name: "bolt.fill"
    }
    Stack {
        id: lines

        anchors.left: symbol.right
        anchors.leftMargin: 6
        anchors.right: parent.right
        spacing: 2

        LineLayout {
            minElasticWidth: Theme.minNameWidth
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
            RowEnd {
                answer: row.answer
                canExpand: false
                isExpanded: false
            }
        }
        Paragraph {
            color: Theme.secondary
            text: row.content.detail
            width: parent.width
        }
    }
}
