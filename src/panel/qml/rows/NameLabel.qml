import QtQuick
import Tamberline.Controls
import Tamberline.Views

// The name of a device. The tooltip shows all of it, even if C++ has already shortened the text.
TextLine {
    required property nameLabel name

    font: Theme.captionFont
    text: name.text
    tooltip: name.text !== name.tooltip ? name.tooltip : ""
    wholeText: name.tooltip
    LineLayout.isElastic: true
}
