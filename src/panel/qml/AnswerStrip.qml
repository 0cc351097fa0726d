import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// What needs attention, above the cards: a line for each answer, and how many more there are. Takes no
// room if there is nothing.
Item {
    id: strip

    implicitHeight: lines.active ? lines.implicitHeight + 6 : 0
    Accessible.ignored: !lines.active
    Accessible.name: Panel.texts.needsAttention
    Accessible.role: Accessible.Grouping

    Loader {
        id: lines

        active: Answers.lines.length > 0
        width: parent.width - 24
        x: 12

        sourceComponent: Column {
            spacing: 2

            Repeater {
                model: Answers.lines

                AnswerStripLine {
                    required property answerLine modelData

                    line: modelData
                    width: lines.width // qmllint disable unqualified
                }
            }
            TextButton {
                id: more

                text: Answers.more
                visible: text !== ""
                onTriggered: Popover.toggle(more, Answers.more, Answers.otherHeadlines)
            }
        }
    }
}
