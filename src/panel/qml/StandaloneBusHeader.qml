import QtQuick
import Tamberline

// The header of the card of a bus that no port brought.
CardSegment {
    id: segment

    required property var content

    Stack {
        bottomPadding: 4
        width: parent.width

        USBBusHeaderRow {
            canExpand: false
            content: segment.content
            isExpanded: false
            width: parent.width
        }
    }
}
