import QtQuick
import Tamberline
import Tamberline.Views

// One node of the tree below a card's header: indented, tinted, and a button if it has children.
CardSegment {
    id: row

    required property int depth
    required property bool isLast
    required property bool isExpanded
    required property tint tint
    required property int pulse
    default property alias rowContent: slot.data

    areaBottom: bottomPadding - 1
    areaLeft: 23 + depth * 16
    areaRight: 23
    areaTop: topPadding - 1

    HierarchyRow {
        depth: row.depth
        isLast: row.isLast
        width: parent.width - x
        x: -row.inset

        Item {
            implicitHeight: slot.childrenRect.height + 12
            height: implicitHeight
            width: parent.width

            Rectangle {
                anchors.fill: parent
                color: StatusColors.fills.of(row.tint.color)
                opacity: row.tint.opacity
                radius: 6
            }
            PulseOverlay {
                anchors.fill: parent
                phase: row.pulse
            }
            Item {
                id: slot

                height: childrenRect.height
                width: parent.width - x
                x: row.inset
                y: 6
            }
        }
    }
}
