import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views

// Says why the cards show less than a person may expect. Opaque like the footer.
Rectangle {
    color: Theme.window
    height: visible ? text.implicitHeight + 16 : 0
    visible: Panel.state === Views.Cards && Panel.hint !== ""

    Paragraph {
        id: text

        color: Theme.secondary
        text: Panel.hint
        width: parent.width - 28
        x: 14
        y: 8
    }
}
