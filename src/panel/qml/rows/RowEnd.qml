import QtQuick
import Tamberline.Controls
import Tamberline.Views

// The right end of a row's first line: the mark of an answer and the chevron. Hidden if it has neither.
Row {
    id: end

    required property rowAnswer answer
    required property bool canExpand
    required property bool isExpanded
    property bool showsMark: answer.isShown

    spacing: 6
    visible: showsMark || canExpand
    LineLayout.isPinned: true

    AnswerMark {
        answer: end.answer
        visible: end.showsMark
    }
    Chevron {
        isExpanded: end.isExpanded
        visible: end.canExpand
    }
}
