import QtQuick
import Tamberline
import Tamberline.Controls

// The root item of the panel.
FocusScope {
    id: content

    property real cornerRadius: 0
    property bool isFrameless: false

    clip: true // the list area has its new height before the window has
    focus: true

    Binding {
        property: "isSearching"
        target: Sizing
        value: Search.isSearching
    }
    PanelSurface {
        anchors.fill: parent
        radius: content.cornerRadius
        visible: content.cornerRadius > 0
    }
    PanelHeader {
        id: header

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
    }
    ChromeHeightKey {
        height: header.implicitHeight
    }
    SearchField {
        id: search

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: header.bottom
        below: suggestions.list
    }
    ChromeHeightKey {
        height: search.implicitHeight
    }
    Suggestions {
        id: suggestions

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: search.bottom
        below: area.list
    }
    ChromeHeightKey {
        height: suggestions.implicitHeight
    }
    AnswerStrip {
        id: answers

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: suggestions.bottom
        height: implicitHeight
    }
    ChromeHeightKey {
        height: answers.implicitHeight
    }
    Rectangle {
        id: upperDivider

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: answers.bottom
        color: Theme.separator
        height: 1
    }
    ListArea {
        id: area

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: upperDivider.bottom
        height: Sizing.listAreaHeight
    }
    Rectangle {
        anchors.bottom: hint.top
        anchors.left: parent.left
        anchors.right: parent.right
        color: Theme.separator
        height: 1
    }
    HintBelowCards {
        id: hint

        anchors.bottom: footer.top
        anchors.left: parent.left
        anchors.right: parent.right
    }
    ChromeHeightKey {
        height: hint.height
    }
    PanelFooter {
        id: footer

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        cornerRadius: content.cornerRadius
    }
    ChromeHeightKey {
        height: footer.implicitHeight
    }
    Rectangle {
        anchors.fill: parent
        border.color: Theme.separator
        border.width: 1
        color: "transparent"
        radius: content.cornerRadius
        visible: content.isFrameless
    }
    MouseArea {
        anchors.fill: parent
        enabled: Popover.target !== null
        onPressed: Popover.close()
    }
    PopupBox {
        beyond: Popover.beyond
        target: Popover.target

        Paragraph {
            font: Theme.captionFont
            text: Popover.title
            width: 280
        }
        Paragraph {
            color: Theme.secondary
            text: Popover.text
            width: 280
        }
        Paragraph {
            text: Popover.secondText
            visible: text !== ""
            width: 280
        }
    }
    PopupBox {
        target: Tooltips.target

        TextMetrics {
            id: tooltipMetrics

            font: Theme.caption2Font
            text: Tooltips.text
        }
        Paragraph {
            text: Tooltips.text
            width: Math.min(300, Math.ceil(tooltipMetrics.advanceWidth) + 1)
            Accessible.ignored: true
        }
    }
}
