import QtQuick
import Tamberline.Controls

// A line on the grid that all rows share: symbols in the leading column, text from one edge to the
// other, the chevron in the column at the right.
LineLayout {
    indent: Theme.textIndent
    lineSpacing: 2
    minElasticWidth: Theme.minNameWidth
    pinnedWidth: Theme.chevronWidth
    spacing: 6
}
