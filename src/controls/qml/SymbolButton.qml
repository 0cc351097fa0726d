import QtQuick
import Tamberline.Controls

// A button with a symbol. The area that can be pressed is larger than a small symbol and then
// reaches beyond the button's place in its line. The screen reader reads its tooltip as its name.
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

    MouseArea {
        id: mouse

        anchors.centerIn: parent
        height: Theme.buttonSize
        width: Theme.buttonSize
        onClicked: button.triggered()
        onPressed: Tooltips.hide()

        Rectangle {
            anchors.fill: parent
            color: Theme.text
            opacity: mouse.pressed ? 0.14 : 0.07
            radius: 6
            visible: hover.hovered && button.enabled
        }
        FocusRing {
            item: button
        }
        Tooltip {
            id: hover

            text: button.tooltip
        }
    }
    SymbolIcon {
        anchors.centerIn: parent
        color: button.color
        name: button.symbol
    }
}
