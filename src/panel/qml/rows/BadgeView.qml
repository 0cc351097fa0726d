import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A small label. If it has a colour, its background is a faint tint of that colour. With a text for a
// popover, it is a button that opens it.
Rectangle {
    id: badgeView

    required property badge badge
    property string popoverTitle
    property string popoverText
    readonly property bool isButton: popoverText !== ""

    function explain() {
        Popover.toggle(badgeView, popoverTitle, popoverText);
    }

    activeFocusOnTab: isButton
    color: "transparent"
    implicitHeight: line.implicitHeight + 4
    implicitWidth: line.implicitWidth + line.x * 2
    radius: 4
    visible: badge.text !== ""
    Accessible.focusable: isButton
    Accessible.ignored: !isButton
    Accessible.name: badge.text
    Accessible.role: Accessible.Button
    Accessible.onPressAction: explain()
    Keys.enabled: isButton
    Keys.onEnterPressed: explain()
    Keys.onReturnPressed: explain()
    Keys.onSpacePressed: explain()

    Tooltip {
        text: label.shownTooltip
    }
    Rectangle {
        anchors.fill: parent
        color: StatusColors.fills.of(badgeView.badge.color)
        opacity: 0.12
        radius: parent.radius
        visible: badgeView.badge.hasBackground
    }
    LineLayout {
        id: line

        anchors.verticalCenter: parent.verticalCenter
        spacing: 2
        width: parent.width - x * 2
        x: badgeView.badge.hasBackground ? 6 : 0

        Symbol {
            color: StatusColors.inks.of(badgeView.badge.color)
            implicitHeight: Theme.smallSymbolSize
            implicitWidth: Theme.smallSymbolSize
            name: badgeView.badge.icon
            visible: name !== ""
        }
        TextLine {
            id: label

            color: StatusColors.inks.of(badgeView.badge.color)
            font: badgeView.badge.hasBackground ? Theme.badgeFont : Theme.caption2Font
            showsTooltip: false
            text: badgeView.badge.text
            tooltip: badgeView.badge.tooltip
            LineLayout.isElastic: true
        }
    }
    MouseArea {
        anchors.fill: parent
        enabled: badgeView.isButton
        onClicked: badgeView.explain()
        onPressed: Tooltips.hide()
    }
    FocusRing {
        item: badgeView
    }
}
