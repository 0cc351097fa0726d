import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The error because of which there is nothing to show.
Item {
    id: errorBox

    required property string hint
    required property string message

    implicitHeight: box.height + 24

    Rectangle {
        id: box

        color: "transparent"
        height: texts.implicitHeight + 24
        width: parent.width - 24
        x: 12
        y: 12

        Rectangle {
            anchors.fill: parent
            color: StatusColors.fills.of(Views.Orange)
            opacity: 0.12
            radius: 10
        }
        SymbolIcon {
            id: symbol

            anchors.verticalCenter: parent.verticalCenter
            color: StatusColors.inks.of(Views.Orange)
            x: 12
            name: "exclamationmark.triangle"
        }
        Stack {
            id: texts

            anchors.left: symbol.right
            anchors.leftMargin: 8
            anchors.right: parent.right
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            spacing: 4

            Paragraph {
                font: Theme.captionFont
                text: errorBox.message
                width: parent.width
                Accessible.role: Accessible.AlertMessage
            }
            Paragraph {
                color: Theme.secondary
                text: errorBox.hint
                width: parent.width
            }
        }
    }
}
