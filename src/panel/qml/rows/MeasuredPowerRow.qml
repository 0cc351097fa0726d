import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The measured power of a port, updated live.
Stack {
    id: row

    required property measuredPower power

    spacing: 3

    LineLayout {
        spacing: 4
        width: parent.width

        Symbol {
            color: StatusColors.inks.of(Views.Blue)
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
        color: StatusColors.fills.of(Views.Blue)
        width: parent.width

        Tooltip {
            text: row.power.tooltip
        }
    }
}
