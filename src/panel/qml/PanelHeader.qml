import QtQuick
import Tamberline
import Tamberline.Controls

// The application's name and the controls for the whole list. Without padding at the bottom,
// because the search area below has its own.
Item {
    implicitHeight: line.y + line.implicitHeight

    LineLayout {
        id: line

        spacing: 2
        width: parent.width - x - 10
        x: 14
        y: 8

        SymbolIcon {
            color: Theme.text
            implicitHeight: Theme.buttonSize
            implicitWidth: Theme.symbolSize
            name: "cable.connector"
        }
        Item {
            implicitHeight: 1
            implicitWidth: 4
        }
        TextLine {
            font: Theme.titleFont
            text: "Tamberline"
            LineLayout.isElastic: true
        }
        Item {
            id: scan

            implicitHeight: Theme.buttonSize
            implicitWidth: Theme.buttonSize
            LineLayout.isTrailing: true

            SymbolButton {
                tooltip: Panel.texts.hintScan
                symbol: "arrow.clockwise"
                visible: !Panel.isScanning
                onTriggered: Panel.scan()
            }
            Spinner {
                anchors.centerIn: parent
                label: Panel.texts.scanningPorts
                visible: Panel.isScanning
            }
        }
        SymbolButton {
            tooltip: Panel.texts.hintExpandAll
            symbol: "rectangle.expand.vertical"
            onTriggered: Panel.expandAll()
        }
        SymbolButton {
            tooltip: Panel.texts.hintCollapseAll
            symbol: "rectangle.compress.vertical"
            onTriggered: Panel.collapseAll()
        }
    }
}
