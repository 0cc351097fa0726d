import QtQuick
import Tamberline.Controls

// Indents a row and draws the lines that lead to it: a guide for each ancestor, and a connector
// that continues to the next sibling if there is one.
Item {
    id: hierarchy

    required property int depth
    required property bool isLast
    default property alias row: slot.data

    implicitHeight: slot.childrenRect.height

    Row {
        height: parent.height + 4 // up to the lines of the neighbouring rows
        y: -2

        Repeater {
            model: hierarchy.depth

            Item {
                id: column

                required property int index
                readonly property bool isConnector: index === hierarchy.depth - 1 // qmllint disable unqualified

                height: parent.height
                width: 16

                Rectangle {
                    color: column.isConnector ? Theme.secondary : Theme.text
                    height: column.isConnector && hierarchy.isLast ? branch.y + 1 : parent.height // qmllint disable unqualified
                    opacity: column.isConnector ? 1 : 0.2
                    width: 1
                    x: 7
                }
                Rectangle {
                    id: branch

                    color: Theme.secondary
                    height: 1
                    visible: column.isConnector
                    width: 6
                    x: 7
                    y: 9 + Theme.symbolSize / 2
                }
            }
        }
    }
    Item {
        id: slot

        anchors.fill: parent
        anchors.leftMargin: hierarchy.depth * 16
    }
}
