import QtQuick
import Tamberline

// The power adapter in one line.
LineLayout {
    id: row

    required property var content

    alignsBaselines: true
    leastElasticWidth: Theme.leastNameWidth
    lineSpacing: 2
    spacing: 6

    Symbol {
        color: Theme.fills.yellow
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
            color: Theme.inks.green
            name: "arrow.up.circle.fill"
            visible: row.content.isCharging
        }
        TextLine {
            color: row.content.isCharging ? Theme.inks.green : Theme.secondary
            text: row.content.rated
        }
    }
}
