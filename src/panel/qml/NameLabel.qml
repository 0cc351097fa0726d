import QtQuick
import Tamberline

// The name of a device; the whole of it in the tooltip where it is cut.
Label {
    required property var name

    font: Theme.captionFont
    text: name.text
    tooltip: truncated || name.text !== name.tooltip ? name.tooltip : ""
    LineLayout.isElastic: true
}
