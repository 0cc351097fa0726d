import QtQuick

// The header of a port's card: a button that opens and closes the card.
CardSegment {
    id: card

    required property int index
    required property var content
    required property bool isExpanded

    Accessible.onPressAction: Panel.toggle(index)

    MouseArea {
        height: parent.height + 16
        width: parent.width + 24
        x: -12
        y: -12
        onClicked: Panel.toggle(card.index)
    }
    LineLayout {
        leastElasticWidth: Theme.leastNameWidth
        lineSpacing: 4
        spacing: 8
        width: parent.width

        Rectangle {
            color: card.content.inUse ? Theme.fills.green : Theme.fills.grey
            implicitHeight: 9
            implicitWidth: 9
            opacity: card.content.inUse ? 1 : 0.35
            radius: 4.5
            Accessible.description: card.content.dotTooltip
            Accessible.name: card.content.dotTooltip
            Accessible.role: Accessible.Indicator

            Hint {
                text: card.content.dotTooltip
            }
        }
        NameLabel {
            font: Theme.subheadlineFont
            name: card.content.title
        }
        Rectangle {
            color: "transparent"
            implicitHeight: count.implicitHeight + 2
            implicitWidth: count.implicitWidth + 10
            visible: count.text !== ""

            Rectangle {
                anchors.fill: parent
                color: Theme.fills.grey
                opacity: 0.15
                radius: 5
            }
            Label {
                id: count

                anchors.centerIn: parent
                color: Theme.secondary
                text: card.content.itemCount
                tooltip: card.content.itemCountTooltip
            }
        }
        Repeater {
            model: card.content.badges

            BadgeView {
                required property var modelData

                badge: modelData
                LineLayout.isTrailing: true
            }
        }
        Chevron {
            isExpanded: card.isExpanded
            LineLayout.isPinned: true
        }
    }
    FocusRing {
        anchors.margins: -6
        item: card
    }
}
