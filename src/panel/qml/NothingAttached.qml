import QtQuick
import Tamberline

// What an open card of an empty port shows.
CardSegment {
    id: segment

    required property var content

    topPadding: 6

    Row {
        spacing: 6

        SymbolIcon {
            color: Theme.secondary
            name: "minus.circle"
        }
        TextLine {
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            text: segment.content.nothingAttached
        }
    }
}
