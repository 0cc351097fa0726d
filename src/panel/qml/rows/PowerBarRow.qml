import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A bar for the rated draw in relation to a port's budget.
Stack {
    id: row

    required property powerBarRow powerBar

    spacing: 3

    LineLayout {
        spacing: 4
        width: parent.width

        Symbol {
            color: Theme.secondary
            implicitHeight: Theme.smallSymbolSize
            implicitWidth: Theme.smallSymbolSize
            name: "bolt.fill"
        }
        TextLine {
            text: row.powerBar.used
            tooltip: row.powerBar.tooltip
        }
        TextLine {
            color: Theme.secondary
            text: row.powerBar.allocated
            tooltip: row.powerBar.tooltip
        }
        TextLine {
            color: Theme.secondary
            text: row.powerBar.portMax
            tooltip: row.powerBar.tooltip
            LineLayout.isTrailing: true
        }
    }
    TriBar {
        bar: row.powerBar.bar
        color: StatusColors.fills.of(row.powerBar.color)
        width: parent.width

        Tooltip {
            text: row.powerBar.tooltip
        }
    }
}
