import QtQuick
import Tamberline
import Tamberline.Controls

// One search result: a device and its location.
FocusScope {
    id: row

    required property int index
    required property string name
    required property string detail
    required property string breadcrumb
    required property string sentence

    implicitHeight: lines.implicitHeight + 8
    width: ListView.view.width
    Accessible.focusable: true
    Accessible.name: sentence
    Accessible.role: Accessible.Button
    Accessible.onPressAction: Search.jumpToSuggestion(index)
    Keys.onEnterPressed: Search.jumpToSuggestion(index)
    Keys.onReturnPressed: Search.jumpToSuggestion(index)

    Rectangle {
        anchors.fill: parent
        color: Theme.accent
        opacity: 0.08
        radius: 6
        visible: row.index === 0
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.text
        opacity: 0.05
        radius: 6
        visible: hover.hovered
    }
    HoverHandler {
        id: hover
    }
    Stack {
        id: lines

        spacing: 1
        width: parent.width - x * 2
        x: 8
        y: 4

        LineLayout {
            minElasticWidth: Theme.minNameWidth
            spacing: 6
            width: parent.width

            TextLine {
                font: Theme.captionFont
                text: row.name
                LineLayout.isElastic: true
            }
            TextLine {
                color: Theme.secondary
                text: row.detail
            }
        }
        TextLine {
            color: Theme.secondary
            text: row.breadcrumb
            width: parent.width
        }
    }
    MouseArea {
        anchors.fill: parent
        onClicked: Search.jumpToSuggestion(row.index)
    }
    FocusRing {
        item: row
    }
}
