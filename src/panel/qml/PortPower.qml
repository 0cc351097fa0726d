import QtQuick
import Tamberline

// The power on a port: what is measured or agreed on, and the rated draw of everything on it.
CardSegment {
    id: segment

    required property var content

    Stack {
        bottomPadding: 4
        spacing: 6
        width: parent.width

        Loader {
            active: segment.content.measuredPower.isShown
            visible: active
            width: parent.width

            sourceComponent: MeasuredPowerRow {
                power: segment.content.measuredPower // qmllint disable unqualified
            }
        }
        Loader {
            active: segment.content.agreedPower.isShown
            visible: active
            width: parent.width

            sourceComponent: AgreedPowerRow {
                power: segment.content.agreedPower // qmllint disable unqualified
            }
        }
        Loader {
            active: segment.content.portPowerBar.isShown
            visible: active
            width: parent.width

            sourceComponent: PowerBarRow {
                powerBar: segment.content.portPowerBar // qmllint disable unqualified
            }
        }
    }
}
