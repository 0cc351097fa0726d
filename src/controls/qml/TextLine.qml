import QtQuick
import Tamberline.Controls

// A text in one line. If it does not fit, its middle is left out and the tooltip shows all of it.
Text {
    id: line

    property string tooltip
    property string wholeText: text
    readonly property string hint: truncated ? wholeText : tooltip
    property bool showsHint: true // false if an item around it shows the tooltip

    color: Theme.text
    elide: Text.ElideMiddle
    font: Theme.caption2Font
    maximumLineCount: 1
    textFormat: Text.PlainText
    visible: text !== ""
    Accessible.description: tooltip
    Accessible.name: text
    Accessible.role: Accessible.StaticText

    Hint {
        enabled: line.showsHint
        text: line.hint
    }
}
