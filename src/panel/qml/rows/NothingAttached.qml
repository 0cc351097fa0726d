import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The line below the header in the card of a bus without devices and in the expanded card of an
// empty port.
CardSegment {
    id: segment

    required property nothingAttachedRow content

    topPadding: 6

    RowLine {
        width: parent.width

        SymbolIcon {
            color: Theme.secondary
            name: "minus.circle"
            LineLayout.isLeading: true
        }
        TextLine {
            color: Theme.secondary
            text: segment.content.text
        }
    }
}
