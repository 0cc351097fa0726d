import QtQuick
import Tamberline.Controls

// A text in one line. What does not fit is left out in the middle, and the tooltip shows the whole.
Text {
    id: line

    property string tooltip
    property string wholeText: text
    readonly property string hint: truncated ? wholeText : tooltip
    property bool showsHint: true // unless something larger around it does

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
