import QtQuick
import Tamberline
import Tamberline.Controls

// The manual button, the time of the last scan, and the quit button.
Item {
    implicitHeight: line.implicitHeight + line.y * 2

    LineLayout {
        id: line

        minElasticWidth: Theme.minNameWidth
        spacing: 8
        width: parent.width - x - 14
        x: 8
        y: 8

        SymbolButton {
            enabled: Panel.canOpenManual
            tooltip: Panel.texts.hintManual
            symbol: "info.circle"
            onTriggered: Panel.openManual()
        }
        TextLine {
            color: Theme.secondary
            text: Updated.text
            LineLayout.isElastic: true
        }
        TextButton {
            enabled: Panel.canQuit
            text: Panel.texts.quit
            LineLayout.isTrailing: true
            onTriggered: Panel.quit()
        }
    }
}
