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

            anchors.left: symbol.right
            anchors.leftMargin: 6
            anchors.right: parent.right
            spacing: 2

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
