import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The power on a port: measured or agreed power, and the total rated draw of everything on it.
CardSegment {
    id: segment

    required property portPower content

    Stack {
        bottomPadding: 4
        spacing: 8
        width: parent.width

        Loader {
            active: segment.content.hasMeasured
            visible: active
            width: parent.width

            sourceComponent: MeasuredPowerRow {
                power: segment.content.measured // qmllint disable unqualified
            }
        }
        Loader {
            active: segment.content.hasAgreed
            visible: active
            width: parent.width

            sourceComponent: AgreedPowerRow {
                power: segment.content.agreed // qmllint disable unqualified
            }
        }
        Loader {
            active: segment.content.hasRatedBar
            visible: active
            width: parent.width

            sourceComponent: PowerBarRow {
                powerBar: segment.content.ratedBar // qmllint disable unqualified
            }
        }
    }
}
