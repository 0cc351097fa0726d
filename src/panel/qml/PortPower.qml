import QtQuick

// The power on a port: what is measured, and the rated draw of everything on it.
CardSegment {
    id: segment

    required property var content

    topPadding: 8

    Rectangle {
        color: Theme.separator
        height: 1
        width: parent.width + 24
        x: -12
        y: -6
    }
    Column {
        bottomPadding: 4
        spacing: 6
        topPadding: 4
        width: parent.width

        Loader {
            active: segment.content.measuredPower.isShown
            visible: active
            width: parent.width

            sourceComponent: MeasuredPowerRow {
                power: segment.content.measuredPower
            }
        }
        Loader {
            active: segment.content.portPowerBar.isShown
            visible: active
            width: parent.width

            sourceComponent: PowerBarRow {
                powerBar: segment.content.portPowerBar
            }
        }
    }
}
