import QtQuick
import Tamberline
import Tamberline.Controls

// The manual button, the time of the last scan, and the quit button. Opaque, because the list may
// reach below it for a moment while the window is about to grow.
Item {
    id: footer

    required property real cornerRadius

    implicitHeight: Math.max(manual.height, updated.height, quit.height) + 16

    PanelSurface {
        anchors.fill: parent
        isRoundAtTop: false
        radius: footer.cornerRadius
    }
    SymbolButton {
        id: manual

        anchors.verticalCenter: parent.verticalCenter
        enabled: Panel.canOpenManual
        tooltip: Panel.texts.hintManual
        symbol: "info.circle"
        x: 8
        onTriggered: Panel.openManual()
    }
    Paragraph {
        id: updated

        anchors.left: manual.right
        anchors.leftMargin: 8
        anchors.right: quit.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.secondary
        horizontalAlignment: Text.AlignHCenter
        text: Updated.text
    }
    TextButton {
        id: quit

        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        enabled: Panel.canQuit
        text: Panel.texts.quit
        onTriggered: Panel.quit()
    }
}
