import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// The scrolling part of the panel: cards, or a message if there are none.
Item {
    id: area

    readonly property Item list: list

    clip: true

    PanelList {
        id: list

        height: Math.max(area.height, Sizing.maxListAreaHeight)
        visible: Panel.state === Views.Cards
        visibleHeight: area.height
        width: parent.width
        onContentYChanged: Popover.close()
        onCountChanged: Popover.close()
    }
    ListHeightKey {
        height: list.visible ? list.fullHeight : 0
    }
    ErrorBox {
        id: errorBox

        hint: Panel.hint
        message: Panel.message
        visible: Panel.state === Views.Error
        width: parent.width
    }
    ListHeightKey {
        height: errorBox.visible ? errorBox.implicitHeight : 0
    }
    Notice {
        id: notice

        hint: Panel.hint
        message: Panel.message
        symbol: Panel.state === Views.Empty ? "cable.connector" : ""
        visible: Panel.state === Views.Empty || Panel.state === Views.Scanning
        width: parent.width
    }
    ListHeightKey {
        height: notice.visible ? notice.implicitHeight : 0
    }
    Scrollbar {
        list: list
        visibleHeight: area.height
    }
}
