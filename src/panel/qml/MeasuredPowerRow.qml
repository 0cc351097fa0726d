import QtQuick
import Tamberline

// The live measured power of a port.
Stack {
    id: row

    required property var power

    spacing: 3

    LineLayout {
        spacing: 4
        width: parent.width

        Symbol {
            color: Theme.inks.blue
            implicitHeight: Theme.smallSymbolSize
            implicitWidth: Theme.smallSymbolSize
            name: "bolt.fill"
        }
        TextLine {
            text: row.power.used
            tooltip: row.power.tooltip
        }
        TextLine {
            color: Theme.secondary
            text: "·"
            visible: row.power.allocated !== ""
            Accessible.ignored: true
        }
        TextLine {
            color: Theme.secondary
            text: row.power.allocated
            tooltip: row.power.tooltip
        }
        TextLine {
            color: Theme.secondary
            text: row.power.voltageCurrent
            tooltip: row.power.tooltip
            LineLayout.isTrailing: true
        }
    }
    TriBar {
        bar: row.power.bar
        color: Theme.fills.blue
        width: parent.width

        Hint {
            text: row.power.tooltip
        }
    }
}
