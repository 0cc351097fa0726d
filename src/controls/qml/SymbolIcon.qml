import QtQuick
import Tamberline.Controls

// A symbol at the size of a line of text, ignored by the screen reader.
Symbol {
    implicitHeight: Theme.symbolSize
    implicitWidth: Theme.symbolSize
    visible: name !== ""
    Accessible.ignored: true
}
