import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A notice about something on a port that is neither a device nor the adapter in use.
CardSegment {
    id: segment

    required property partnerNotice content

    topPadding: 6

    Item {
        implicitHeight: Math.max(symbol.height, lines.height)
        width: parent.width

        SymbolIcon {
            id: symbol

            color: Theme.secondary
            name: segment.content.icon
        }
        Stack {
            id: lines

            spacing: 2
            width: parent.width - x - Theme.chevronWidth
            x: Theme.textIndent

            Paragraph {
                text: segment.content.title
                width: parent.width
            }
            Paragraph {
                color: Theme.secondary
                text: segment.content.detail
                width: parent.width
            }
        }
    }
}
