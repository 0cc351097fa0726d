import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// One answer that needs attention: a button that shows its row in the list, and one that explains it.
Item {
    id: item

    required property answerLine line

    activeFocusOnTab: true
    implicitHeight: Math.max(headline.implicitHeight, explain.implicitHeight) + 6
    Accessible.description: Panel.texts.hintShowAnswer
    Accessible.focusable: true
    Accessible.name: line.headline
    Accessible.role: Accessible.Button
    Accessible.onPressAction: Search.jumpToNode(line.nodeID)
    Keys.onEnterPressed: Search.jumpToNode(line.nodeID)
    Keys.onReturnPressed: Search.jumpToNode(line.nodeID)
    Keys.onSpacePressed: Search.jumpToNode(line.nodeID)

    Rectangle {
        anchors.fill: parent
        color: StatusColors.fills.of(Views.Orange)
        opacity: mouse.pressed ? 0.24 : hover.hovered ? 0.18 : 0.12
        radius: 6
    }
    HoverHandler {
        id: hover
    }
    MouseArea {
        id: mouse

        anchors.fill: parent
        onClicked: Search.jumpToNode(item.line.nodeID)
        onPressed: Tooltips.hide()
    }
    SymbolIcon {
        id: symbol

        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        color: StatusColors.inks.of(Views.Orange)
        name: "exclamationmark.triangle"
    }
    Paragraph {
        id: headline

        anchors.left: symbol.right
        anchors.leftMargin: 6
        anchors.right: explain.left
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        font: Theme.captionFont
        text: item.line.headline
        Accessible.ignored: true
    }
    SymbolButton {
        id: explain

        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        symbol: "info.circle"
        tooltip: Panel.texts.hintExplain
        onTriggered: Popover.toggle(explain, item.line.headline, item.line.text)
    }
    FocusRing {
        item: item
    }
}
