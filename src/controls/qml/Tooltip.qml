import QtQuick
import Tamberline.Controls

// Shows a tooltip while the pointer rests on the parent.
HoverHandler {
    required property string text

    onHoveredChanged: Tooltips.setHovered(parent, text, hovered)
    onTextChanged: Tooltips.setHovered(parent, text, hovered)
}
