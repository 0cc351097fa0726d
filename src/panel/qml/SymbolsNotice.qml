import QtQuick
import Tamberline
import Tamberline.Controls

// Explains why the panel has no symbols if they cannot be drawn.
Item {
    implicitHeight: text.implicitHeight + 16

    Paragraph {
        id: text

        color: Theme.secondary
        text: Panel.texts.symbolsMissing
        width: parent.width - 28
        x: 14
        y: 8
    }
}
