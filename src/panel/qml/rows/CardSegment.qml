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
    property real slide
    property int topPadding: 2
    default property alias lines: body.data
    readonly property int overlap: 12
    readonly property int inset: 6 // between the card's padding and the content of its rows
    readonly property int gap: isLastOfCard ? 10 : 0
    readonly property int bottomPadding: isLastOfCard ? 12 : 2
    // From the edges of the line's part of the card to the area that shows focus and the pointer.
    property int areaLeft: 16
    property int areaTop: isFirstOfCard ? 4 : 0
    property int areaRight: 16
    property int areaBottom: isLastOfCard ? 4 : 0

    implicitHeight: body.y + body.childrenRect.height + bottomPadding + gap
    width: ListView.view.width
    Accessible.focusable: true
    Accessible.name: sentence
    Accessible.role: canExpand ? Accessible.Button : Accessible.ListItem
    Accessible.onPressAction: Panel.toggle(index)
    onActiveFocusChanged: ListView.view.currentIndex = activeFocus ? index : ListView.view.currentIndex

    transform: Translate {
        y: segment.slide
    }

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
    HoverHandler {
        id: hover

        enabled: segment.canExpand
    }
    MouseArea {
        id: mouse

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

        width: parent.width - x - 24
        x: 24 + segment.inset
        y: segment.isFirstOfCard ? 12 : segment.topPadding
    }
    FocusRing {
        anchors.bottomMargin: segment.gap + segment.areaBottom
        anchors.leftMargin: segment.areaLeft
        anchors.rightMargin: segment.areaRight
        anchors.topMargin: segment.areaTop
        color: mouse.pressed ? Theme.pressedWash : hover.hovered ? Theme.hoverWash : "transparent"
        item: segment
        radius: 7
        visible: isFocused || hover.hovered
    }
}
