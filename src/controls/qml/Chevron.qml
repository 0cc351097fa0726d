import QtQuick
import Tamberline.Controls

// Points down if something is expanded, otherwise to the right.
Symbol {
    required property bool isExpanded

    color: Theme.tertiary
    implicitHeight: Theme.smallSymbolSize
    implicitWidth: Theme.smallSymbolSize
    name: "chevron.right"
    rotation: isExpanded ? 90 : 0

    Behavior on rotation {
        NumberAnimation {
            duration: 150
            easing.type: Easing.InOutQuad
        }
    }
}
