import QtQuick
import Tamberline.Controls

// A text in one line. If it does not fit, its middle is left out and the tooltip shows all of it.
Text {
    id: line

    property string tooltip
    property string wholeText: text
    readonly property string shownTooltip: truncated ? wholeText : tooltip
    property bool showsTooltip: true // false if an item around it shows the tooltip

    color: Theme.text
    elide: Text.ElideMiddle
    font: Theme.caption2Font
    maximumLineCount: 1
    textFormat: Text.PlainText
    visible: text !== ""
    Accessible.description: tooltip
    Accessible.name: text
    Accessible.role: Accessible.StaticText

    Tooltip {
        enabled: line.showsTooltip
        text: line.shownTooltip
    }
}
