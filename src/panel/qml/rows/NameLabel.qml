import QtQuick
import Tamberline.Controls
import Tamberline.Views

// The name of a device, which may come cut already; the whole of it in the tooltip then too.
TextLine {
    required property nameLabel name

    font: Theme.captionFont
    text: name.text
    tooltip: name.text !== name.tooltip ? name.tooltip : ""
    wholeText: name.tooltip
    LineLayout.isElastic: true
}
