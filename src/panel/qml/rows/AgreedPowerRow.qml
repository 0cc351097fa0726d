import QtQuick
import Tamberline.Controls
import Tamberline.Views

// The power that both ends of a port's connection agreed on.
RowLine {
    id: row

    required property agreedPowerRow power

    spacing: 4

    Symbol {
        color: Theme.secondary
        implicitHeight: Theme.smallSymbolSize
        implicitWidth: Theme.smallSymbolSize
        name: "bolt.fill"
        LineLayout.isLeading: true
    }
    TextLine {
        text: row.power.watts
        tooltip: row.power.tooltip
    }
    TextLine {
        color: Theme.secondary
        text: row.power.voltageCurrent
        tooltip: row.power.tooltip
        LineLayout.isTrailing: true
    }
}
