import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A mounted volume: its name, and its tools, which stay together when the line breaks.
RowLine {
    id: row

    required property volumeRow volume

    SymbolIcon {
        color: Theme.secondary
        name: "speedometer"
        LineLayout.isLeading: true
    }
    TextLine {
        color: Theme.secondary
        text: row.volume.label
    }
    NameLabel {
        font: Theme.caption2Font
        name: row.volume.name
    }
    LineLayout {
        spacing: 10 // so that the areas of neighbouring buttons do not overlap
        LineLayout.isTrailing: true

        SpinnerButton {
            enabled: Panel.canTestVolumes
            tooltip: row.volume.tools.stopTooltip
            label: row.volume.tools.testProgress
            visible: row.volume.tools.showsTestProgress
            onTriggered: Panel.stopBenchmark(row.volume.mountPoint)
        }
        Repeater {
            model: ValueListModel {
                values: row.volume.tools.testTexts
            }

            TextLine {
                required property coloredText value

                color: StatusColors.inks.of(value.color)
                text: value.text
            }
        }
        SymbolButton {
            enabled: row.volume.tools.testButton.isEnabled && Panel.canTestVolumes
            tooltip: row.volume.tools.testButton.tooltip
            size: Theme.symbolSize
            symbol: row.volume.tools.testButton.symbol
            visible: row.volume.tools.testButton.symbol !== ""
            onTriggered: Panel.runBenchmark(row.volume.mountPoint)
        }
        Spinner {
            label: Panel.texts.ejecting
            visible: row.volume.tools.showsEjectProgress
        }
        SymbolButton {
            color: StatusColors.inks.of(row.volume.tools.ejectButton.color)
            enabled: row.volume.tools.ejectButton.isEnabled && Panel.canEject
            tooltip: row.volume.tools.ejectButton.tooltip
            size: Theme.symbolSize
            symbol: row.volume.tools.ejectButton.symbol
            visible: row.volume.tools.ejectButton.symbol !== ""
            onTriggered: Panel.eject(row.volume.mountPoint)
        }
    }
}
