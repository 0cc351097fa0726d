import QtQuick
import Tamberline.Controls

// A button with a symbol. The screen reader reads its tooltip as its name.
Item {
    id: button

    required property string symbol
    required property string tooltip
    property color color: Theme.secondary
    property real size: Theme.buttonSize

    signal triggered

    activeFocusOnTab: enabled
    implicitHeight: size
    implicitWidth: size
    opacity: enabled ? 1 : 0.4
    Accessible.focusable: enabled
    Accessible.name: tooltip
    Accessible.role: Accessible.Button
    Accessible.onPressAction: if (enabled) triggered()
    Keys.enabled: visible
    Keys.onEnterPressed: triggered()
    Keys.onReturnPressed: triggered()
    Keys.onSpacePressed: triggered()

    Rectangle {
        anchors.fill: parent
        color: Theme.text
        opacity: mouse.pressed ? 0.14 : 0.07
        radius: 6
        visible: hover.hovered && button.enabled
    }
    SymbolIcon {
        anchors.centerIn: parent
        color: button.color
        name: button.symbol
    }
    FocusRing {
        item: button
    }
    Tooltip {
        id: hover

        text: button.tooltip
    }
    MouseArea {
        id: mouse

        anchors.fill: parent
        onClicked: button.triggered()
        onPressed: Tooltips.hide()
    }
}
