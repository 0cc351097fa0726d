import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A negotiated speed in relation to the max speed: the texts, and a bar right below them.
Stack {
    id: row

    required property speedBarRow speedBar

    spacing: 2

    RowLine {
        width: parent.width

        TextLine {
            color: StatusColors.inks.of(row.speedBar.color)
            text: row.speedBar.speedLabel
            tooltip: row.speedBar.tooltip
        }
        TextLine {
            color: Theme.secondary
            text: row.speedBar.portMaxLabel
            tooltip: row.speedBar.tooltip
            LineLayout.isTrailing: true
        }
    }
    TriBar {
        bar: row.speedBar.bar
        color: StatusColors.fills.of(row.speedBar.color)
        width: parent.width - x - Theme.chevronWidth
        x: Theme.textIndent

        Tooltip {
            text: row.speedBar.tooltip
        }
    }
}
