import QtQuick
import Tamberline.Controls

// Shows that something is in progress.
Arc {
    id: spinner

    required property string label

    color: Theme.secondary
    implicitHeight: Theme.symbolSize
    implicitWidth: Theme.symbolSize
    Accessible.name: label
    Accessible.role: Accessible.Indicator

    RotationAnimation on rotation {
        duration: 1000
        from: 0
        loops: Animation.Infinite
        running: spinner.visible
        to: 360
    }
}
