import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A card for the adapter and the battery.
Rectangle {
    id: powerCard

    required property powerCard card

    border.color: Theme.separator
    border.width: 1
    color: Theme.card
    implicitHeight: lines.implicitHeight + 24
    radius: 10

    Stack {
        id: lines

        spacing: 6
        width: parent.width - 24
        x: 12
        y: 12

        LineLayout {
            minElasticWidth: Theme.minNameWidth
            lineSpacing: 2
            spacing: 8
            width: parent.width

            SymbolIcon {
                color: StatusColors.marks.of(Views.Yellow)
                name: "bolt.fill"
            }
            NameLabel {
                font: Theme.subheadlineFont
                name: powerCard.card.name
            }
            TextLine {
                color: Theme.secondary
                text: powerCard.card.rated
            }
            TextLine {
                color: Theme.secondary
                text: powerCard.card.port
                tooltip: powerCard.card.portTooltip
                LineLayout.isTrailing: true
            }
        }
        TriBar {
            bar: powerCard.card.bar
            color: StatusColors.fills.of(powerCard.card.barColor)
            visible: powerCard.card.hasBar
            width: parent.width

            Tooltip {
                text: powerCard.card.barTooltip
            }
        }
        LineLayout {
            spacing: 8
            visible: powerCard.card.delivery !== "" || powerCard.card.ratedMax !== ""
            width: parent.width

            TextLine {
                color: Theme.secondary
                text: powerCard.card.delivery
                tooltip: powerCard.card.barTooltip
            }
            TextLine {
                color: Theme.secondary
                text: powerCard.card.ratedMax
                tooltip: powerCard.card.barTooltip
                LineLayout.isTrailing: true
            }
        }
        LineLayout {
            lineSpacing: 4
            spacing: 6
            visible: powerCard.card.hasBattery
            width: parent.width

            SymbolIcon {
                color: StatusColors.inks.of(powerCard.card.battery.levelColor)
                name: powerCard.card.battery.icon
            }
            TextLine {
                text: powerCard.card.battery.label
            }
            TextLine {
                color: StatusColors.inks.of(powerCard.card.battery.levelColor)
                text: powerCard.card.battery.level
            }
            InfoChip {
                chip: powerCard.card.battery.health
                LineLayout.isTrailing: true
            }
            InfoChip {
                chip: powerCard.card.battery.cycles
                LineLayout.isTrailing: true
            }
        }
    }
}
