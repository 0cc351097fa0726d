import QtQuick
import Tamberline.Controls

// A text that wraps to as many lines as it needs.
Text {
    color: Theme.text
    font: Theme.caption2Font
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    Accessible.name: text
    Accessible.role: Accessible.StaticText
}
