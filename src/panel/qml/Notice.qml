import QtQuick
import Tamberline.Controls

// The message shown while there are no cards.
Item {
    id: notice

    required property string hint
    required property string message
    required property string symbol

    implicitHeight: lines.implicitHeight + 64

    Column {
        id: lines

        anchors.centerIn: parent
        spacing: 8
        width: parent.width - 64

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            color: Theme.tertiary
            implicitHeight: Theme.symbolSize * 2
            implicitWidth: Theme.symbolSize * 2
            name: notice.symbol
            visible: name !== ""
        }
        Paragraph {
            color: Theme.secondary
            font: Theme.captionFont
            horizontalAlignment: Text.AlignHCenter
            text: notice.message
            width: parent.width
        }
        Paragraph {
            color: Theme.secondary
            horizontalAlignment: Text.AlignHCenter
            text: notice.hint
            width: parent.width
        }
    }
}
