import QtQuick
import Tamberline
import Tamberline.Controls

// The text field to search for devices by name.
Item {
    id: field

    property Item below

    implicitHeight: box.height + box.y * 2

    Rectangle {
        id: box

        border.color: Theme.accent
        border.width: input.activeFocus ? 2 : 0
        color: Theme.field
        height: input.implicitHeight + 14
        radius: 8
        width: parent.width - x * 2
        x: 8
        y: 8

        SymbolIcon {
            id: glass

            anchors.left: parent.left
            anchors.leftMargin: 9
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            name: "magnifyingglass"
        }
        TextInput {
            id: input

            activeFocusOnTab: true
            anchors.left: glass.right
            anchors.leftMargin: 7
            anchors.right: clearButton.left
            anchors.rightMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            clip: true
            color: Theme.text
            font: Theme.bodyFont
            maximumLength: 200
            selectByMouse: true
            selectedTextColor: Theme.card
            selectionColor: Theme.accent
            text: Search.searchText
            Accessible.editable: true
            Accessible.name: Panel.texts.searchPlaceholder
            Accessible.role: Accessible.EditableText
            Component.onCompleted: Search.field = input
            KeyNavigation.down: field.below
            onAccepted: Search.jumpToFirst()
            onTextEdited: Search.searchText = text
        }
        TextLine {
            anchors.left: input.left
            anchors.right: parent.right
            anchors.rightMargin: 9
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.secondary
            font: Theme.bodyFont
            text: Panel.texts.searchPlaceholder
            visible: input.text === "" && input.preeditText === ""
            Accessible.ignored: true
        }
        SymbolButton {
            id: clearButton

            anchors.right: parent.right
            anchors.rightMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            tooltip: Panel.texts.hintClearSearch
            symbol: "xmark.circle.fill"
            visible: Search.isSearching
            onTriggered: Search.clear()
        }
    }
}
