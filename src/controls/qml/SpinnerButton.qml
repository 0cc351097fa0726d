import QtQuick
import Tamberline.Controls

// A spinner that stops what it stands for when it is pressed.
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
