import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The mark of a row that an answer is about, or of a closed row with such rows in it. Its popover gives
// the reason and the advice.
SymbolButton {
    id: mark

    required property rowAnswer answer

    color: answer.needsAttention ? StatusColors.inks.of(Views.Orange) : Theme.secondary
    size: Theme.symbolSize
    symbol: answer.symbol
    tooltip: answer.title
    Accessible.name: answer.markName
    onTriggered: Popover.toggle(mark, answer.title, answer.text)
}
