import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// A USB bus.
RowLine {
    id: row

    required property usbBusHeaderRow content
    required property rowAnswer answer
    required property bool canExpand
    required property bool isExpanded

    Symbol {
        color: Theme.secondary
        implicitHeight: Theme.smallSymbolSize
        implicitWidth: Theme.smallSymbolSize
        name: "arrow.triangle.branch"
        LineLayout.isLeading: true
    }
    NameLabel {
        name: row.content.name
    }
    TextLine {
        color: Theme.secondary
        text: row.content.ratedDraw
        LineLayout.isTrailing: true
    }
    AnswerMark {
        answer: row.answer
        visible: row.answer.isShown
        LineLayout.isTrailing: true
    }
    Chevron {
        isExpanded: row.isExpanded
        visible: row.canExpand
        LineLayout.isPinned: true
    }
}
