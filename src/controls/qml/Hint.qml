import QtQuick
import Tamberline.Controls

// Shows a tooltip while the pointer rests on the parent.
HoverHandler {
    required property string text

    onHoveredChanged: Hints.setHovered(parent, text, hovered)
    onTextChanged: Hints.setHovered(parent, text, hovered)
}
