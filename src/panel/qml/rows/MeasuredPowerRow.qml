import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The measured power of a port, updated live: the texts, and a bar right below them.
Stack {
    id: row

    required property measuredPower power

    spacing: 2

    RowLine {
        spacing: 4
        width: parent.width

        Symbol {
            color: StatusColors.inks.of(Views.Blue)
            implicitHeight: Theme.smallSymbolSize
            implicitWidth: Theme.smallSymbolSize
            name: "bolt.fill"
            LineLayout.isLeading: true
        }
        TextLine {
            text: row.power.used
            tooltip: row.power.tooltip
        }
        Separator {
            visible: row.power.allocated !== ""
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
        color: StatusColors.fills.of(Views.Blue)
        width: parent.width - x - Theme.chevronWidth
        x: Theme.textIndent

        Tooltip {
            text: row.power.tooltip
        }
    }
}
