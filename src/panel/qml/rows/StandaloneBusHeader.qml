import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The header of the card of a bus that belongs to no port.
CardSegment {
    id: segment

    required property usbBusHeaderRow content

    Stack {
        bottomPadding: 4
        width: parent.width

        USBBusHeaderRow {
            answer: segment.answer
            canExpand: false
            content: segment.content
            isExpanded: false
            width: parent.width
        }
    }
}
