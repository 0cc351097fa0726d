import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The header of a port's card, which expands and collapses the card.
CardSegment {
    id: card

    required property portHeader content
    required property bool isExpanded

    areaBottom: isExpanded ? 9 : 4

    Stack {
        bottomPadding: card.isExpanded ? 4 : 0
        spacing: 10
        width: parent.width

        RowLine {
            lineSpacing: 4
            minElasticWidth: Theme.minTitleWidth
            spacing: 8
            width: parent.width

            Dot {
                color: card.content.inUse ? StatusColors.fills.of(Views.Green) : StatusColors.fills.of(Views.Grey)
                implicitHeight: 9
                implicitWidth: 9
                opacity: card.content.inUse ? 1 : 0.35
                LineLayout.isLeading: true
                Accessible.description: card.content.dotTooltip
                Accessible.name: card.content.dotTooltip
                Accessible.role: Accessible.Indicator

                Tooltip {
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

                Tooltip {
                    text: count.shownTooltip
                }
                Rectangle {
                    anchors.fill: parent
                    color: StatusColors.fills.of(Views.Grey)
                    opacity: 0.15
                    radius: 5
                }
                TextLine {
                    id: count

                    anchors.centerIn: parent
                    color: Theme.secondary
                    showsTooltip: false
                    text: card.content.itemCount
                    tooltip: card.content.itemCountTooltip
                }
            }
            Repeater {
                model: card.content.badges

                BadgeView {
                    id: badgeView

                    required property badge modelData

                    badge: modelData
                    isButton: card.content.details !== "" // qmllint disable unqualified
                    onTriggered: Popover.toggle(badgeView, card.content.title.text, card.content.details) // qmllint disable unqualified
                    LineLayout.isTrailing: true
                }
            }
            AnswerMark {
                answer: card.answer
                visible: card.answer.isShown
                LineLayout.isTrailing: true
            }
            Chevron {
                isExpanded: card.isExpanded
                LineLayout.isPinned: true
            }
        }
        Rectangle {
            color: Theme.separator
            height: 1
            visible: card.isExpanded
            width: parent.width + 24 + card.inset
            x: -12 - card.inset
        }
    }
}
