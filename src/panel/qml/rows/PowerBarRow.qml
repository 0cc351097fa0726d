import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A rated draw in relation to a port's budget: the texts, and a bar right below them.
Stack {
    id: row

    required property powerBarRow powerBar

    spacing: 2

    RowLine {
        spacing: 4
        width: parent.width

        Symbol {
            color: Theme.secondary
            implicitHeight: Theme.smallSymbolSize
            implicitWidth: Theme.smallSymbolSize
            name: "bolt.fill"
            LineLayout.isLeading: true
        }
        TextLine {
            text: row.powerBar.used
            tooltip: row.powerBar.tooltip
        }
        Separator {
            visible: row.powerBar.allocated !== ""
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
        width: parent.width - x - Theme.chevronWidth
        x: Theme.textIndent

        Tooltip {
            text: row.powerBar.tooltip
        }
    }
}
