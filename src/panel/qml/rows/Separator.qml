import QtQuick
import Tamberline.Controls

// A dot between two texts of a line. It vanishes where the line breaks.
Text {
    color: Theme.secondary
    font: Theme.caption2Font
    text: "·"
    textFormat: Text.PlainText
    Accessible.ignored: true
    LineLayout.isSeparator: true
}
