import QtQuick
import Tamberline.Controls

// A spinner that can be pressed to stop the operation in progress.
SymbolButton {
    id: button

    required property string label

    size: Theme.symbolSize
    symbol: ""

    Spinner {
        anchors.centerIn: parent
        label: button.label
    }
}
