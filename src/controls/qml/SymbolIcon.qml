import QtQuick
import Tamberline.Controls

// A symbol of the size that goes with a line of text.
Symbol {
    implicitHeight: Theme.symbolSize
    implicitWidth: Theme.symbolSize
    visible: name !== ""
    Accessible.ignored: true
}
