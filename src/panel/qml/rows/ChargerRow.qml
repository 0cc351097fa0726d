import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The power adapter in one line.
LineLayout {
    id: row

    required property rowAnswer answer
    required property chargerRow content

    alignsBaselines: true
    minElasticWidth: Theme.minNameWidth
    lineSpacing: 2
    spacing: 6

    Symbol {
        color: StatusColors.fills.of(Views.Yellow)
        implicitHeight: Theme.smallSymbolSize
        implicitWidth: Theme.smallSymbolSize
        name: "bolt.horizontal"
    }
    NameLabel {
        name: row.content.name
    }
    LineLayout {
        alignsBaselines: true
        spacing: 4
        visible: row.content.rated !== ""
        LineLayout.isTrailing: true

        SymbolIcon {
            color: StatusColors.inks.of(Views.Green)
            name: "arrow.up.circle.fill"
            visible: row.content.isCharging
        }
        TextLine {
            color: row.content.isCharging ? StatusColors.inks.of(Views.Green) : Theme.secondary
            text: row.content.rated
        }
    }
    RowEnd {
        answer: row.answer
        canExpand: false
        isExpanded: false
    }
}
