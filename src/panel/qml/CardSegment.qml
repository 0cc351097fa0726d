import QtQuick

// One line of a card: its part of the card's background, and what stands on it.
FocusScope {
    id: segment

    required property bool isFirstOfCard
    required property bool isLastOfCard
    required property string sentence
    property bool canExpand: false
    property int topPadding: 2
    default property alias content: body.data
    readonly property int overlap: 12
    readonly property int gap: isLastOfCard ? 10 : 0
    readonly property int bottomPadding: isLastOfCard ? 12 : 2

    implicitHeight: body.y + body.childrenRect.height + bottomPadding + gap
    width: ListView.view.width
    Accessible.focusable: true
    Accessible.name: sentence
    Accessible.role: canExpand ? Accessible.Button : Accessible.ListItem

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
    Item {
        id: body

        width: parent.width - 48
        x: 24
        y: segment.isFirstOfCard ? 12 : segment.topPadding
    }
}
