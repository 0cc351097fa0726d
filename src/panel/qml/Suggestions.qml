import QtQuick
import Tamberline
import Tamberline.Controls

// The search results. Return in the search field jumps to the first.
Item {
    id: suggestions

    property Item below
    readonly property Item list: list

    implicitHeight: Search.isSearching ? box.height + 8 : 0
    visible: Search.isSearching

    Column {
        id: box

        width: parent.width - x * 2
        x: 8

        TextLine {
            color: Theme.secondary
            padding: 4
            text: Panel.texts.noSearchResults
            visible: !Search.hasSuggestions
            width: parent.width
        }
        ListView {
            id: list

            readonly property string query: Search.searchText

            activeFocusOnTab: true
            boundsBehavior: Flickable.StopAtBounds
            cacheBuffer: 0
            clip: true
            currentIndex: 0
            height: Math.min(contentHeight, Sizing.maxSuggestionsHeight)
            keyNavigationEnabled: true
            model: Search.suggestions
            visible: Search.hasSuggestions
            width: parent.width
            Accessible.name: Panel.texts.suggestionList
            Accessible.role: Accessible.List
            onQueryChanged: currentIndex = 0
            KeyNavigation.down: suggestions.below
            KeyNavigation.priority: KeyNavigation.AfterItem

            delegate: SuggestionRow {
            }
        }
    }
}
