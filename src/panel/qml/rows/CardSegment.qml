import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// One line of a card, with its part of the card's background. If it can be expanded, it is a
// button.
FocusScope {
    id: segment

    required property int index
    required property bool isFirstOfCard
    required property bool isLastOfCard
    required property string sentence
    required property bool canExpand
    required property rowAnswer answer
    property int topPadding: 2
    default property alias lines: body.data
    readonly property int overlap: 12
    readonly property int gap: isLastOfCard ? 10 : 0
    readonly property int bottomPadding: isLastOfCard ? 12 : 2

    implicitHeight: body.y + body.childrenRect.height + bottomPadding + gap
    width: ListView.view.width
    Accessible.focusable: true
    Accessible.name: sentence
    Accessible.role: canExpand ? Accessible.Button : Accessible.ListItem
    Accessible.onPressAction: Panel.toggle(index)
    onActiveFocusChanged: ListView.view.currentIndex = activeFocus ? index : ListView.view.currentIndex

    Item {
        clip: true
        height: parent.height - segment.gap
        width: parent.width - 24
        x: 12

        Rectangle {
            border.color: Theme.separator
            border.width: 1
            color: Theme.card
            height: parent.height - y + (segment.isLastOfCard ? 0 : segment.overlap)
            radius: 10
            width: parent.width
            y: segment.isFirstOfCard ? 0 : -segment.overlap
        }
    }
    MouseArea {
        anchors.bottomMargin: segment.gap
        anchors.fill: parent
        anchors.leftMargin: 12
        anchors.rightMargin: 12
        enabled: segment.canExpand
        onClicked: Panel.toggle(segment.index)
        onPressed: {
            Tooltips.hide();
            segment.ListView.view.currentIndex = segment.index;
        }
    }
    Item {
        id: body

        width: parent.width - 48
        x: 24
        y: segment.isFirstOfCard ? 12 : segment.topPadding
    }
    FocusRing {
        anchors.bottomMargin: segment.gap + 1
        anchors.leftMargin: 13
        anchors.rightMargin: 13
        anchors.topMargin: 1
        item: segment
        radius: 9
    }
}
