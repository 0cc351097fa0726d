import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A small label. If it has a colour, its background is a faint tint of that colour. It can be a button.
Rectangle {
    id: badgeView

    required property badge badge
    property bool isButton: false

    signal triggered

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
    Accessible.onPressAction: triggered()
    Keys.enabled: isButton
    Keys.onEnterPressed: triggered()
    Keys.onReturnPressed: triggered()
    Keys.onSpacePressed: triggered()

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
        onClicked: badgeView.triggered()
        onPressed: Tooltips.hide()
    }
    FocusRing {
        item: badgeView
    }
}
