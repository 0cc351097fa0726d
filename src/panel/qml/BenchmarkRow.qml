import QtQuick
import Tamberline

// A mounted volume: its name, its speed test, and the way to eject it.
LineLayout {
    id: row

    required property var volume

    leastElasticWidth: Theme.leastNameWidth
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
        hint: row.volume.stopTooltip
        label: row.volume.testProgress
        visible: row.volume.showsTestProgress
        LineLayout.isTrailing: true
        onTriggered: Panel.stopBenchmark(row.volume.mountPoint)
    }
    Repeater {
        model: ValueListModel {
            values: row.volume.testTexts
        }

        TextLine {
            required property var value

            color: Theme.inks[value.color]
            text: value.text
            LineLayout.isTrailing: true
        }
    }
    SymbolButton {
        enabled: row.volume.testButton.isEnabled && Panel.canTestVolumes
        hint: row.volume.testButton.tooltip
        size: Theme.symbolSize
        symbol: row.volume.testButton.symbol
        visible: row.volume.testButton.isShown
        LineLayout.isTrailing: true
        onTriggered: Panel.runBenchmark(row.volume.mountPoint)
    }
    Spinner {
        label: Panel.texts.ejecting
        visible: row.volume.showsEjectProgress
        LineLayout.isTrailing: true
    }
    SymbolButton {
        color: Theme.inks[row.volume.ejectButton.color]
        enabled: row.volume.ejectButton.isEnabled && Panel.canEject
        hint: row.volume.ejectButton.tooltip
        size: Theme.symbolSize
        symbol: row.volume.ejectButton.symbol
        visible: row.volume.ejectButton.isShown
        LineLayout.isTrailing: true
        onTriggered: Panel.eject(row.volume.mountPoint)
    }
}
