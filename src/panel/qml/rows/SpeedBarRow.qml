import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A bar for a negotiated speed in relation to the max speed.
Stack {
    id: row

    required property speedBarRow speedBar

    spacing: 3

    TriBar {
        bar: row.speedBar.bar
        color: StatusColors.fills.of(row.speedBar.color)
        width: parent.width

        Tooltip {
            text: row.speedBar.tooltip
        }
    }
    LineLayout {
        spacing: 8
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
}
