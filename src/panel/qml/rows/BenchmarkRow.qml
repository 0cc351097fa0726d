import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A mounted volume: its name, its speed test and its eject button.
LineLayout {
    id: row

    required property volumeRow volume

    minElasticWidth: Theme.minNameWidth
    lineSpacing: 2
    spacing: 6

    SymbolIcon {
        color: Theme.secondary
        name: "speedometer"
    }
    TextLine {
        color: Theme.secondary
        text: row.volume.label
    }
    NameLabel {
        font: Theme.caption2Font
        name: row.volume.name
    }
    SpinnerButton {
        enabled: Panel.canTestVolumes
        tooltip: row.volume.tools.stopTooltip
        label: row.volume.tools.testProgress
        visible: row.volume.tools.showsTestProgress
        LineLayout.isTrailing: true
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
            LineLayout.isTrailing: true
        }
    }
    SymbolButton {
        enabled: row.volume.tools.testButton.isEnabled && Panel.canTestVolumes
        tooltip: row.volume.tools.testButton.tooltip
        size: Theme.symbolSize
        symbol: row.volume.tools.testButton.symbol
        visible: row.volume.tools.testButton.symbol !== ""
        LineLayout.isTrailing: true
        onTriggered: Panel.runBenchmark(row.volume.mountPoint)
    }
    Spinner {
        label: Panel.texts.ejecting
        visible: row.volume.tools.showsEjectProgress
        LineLayout.isTrailing: true
    }
    SymbolButton {
        color: StatusColors.inks.of(row.volume.tools.ejectButton.color)
        enabled: row.volume.tools.ejectButton.isEnabled && Panel.canEject
        tooltip: row.volume.tools.ejectButton.tooltip
        size: Theme.symbolSize
        symbol: row.volume.tools.ejectButton.symbol
        visible: row.volume.tools.ejectButton.symbol !== ""
        LineLayout.isTrailing: true
        onTriggered: Panel.eject(row.volume.mountPoint)
    }
}
