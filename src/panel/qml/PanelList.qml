import QtQuick
import Tamberline
import Qt.labs.qmlmodels

// The cards of the ports. As high as it can ever become, so that it always knows the height of what
// the window could show; what is not seen of it is cut off, and can be scrolled to.
ListView {
    id: list

    required property real visibleHeight
    // Margins: header and footer items of a list make it start over when they move.
    readonly property real spaceAbove: 12
    readonly property real spaceBelow: 2
    readonly property real fullHeight: spaceAbove + contentHeight + spaceBelow

    activeFocusOnTab: true
    bottomMargin: height - visibleHeight + spaceBelow
    boundsBehavior: Flickable.StopAtBounds
    cacheBuffer: 0 // rows that are made ahead warn when the list shrinks before they are there
    highlightFollowsCurrentItem: false // the scroll proxy knows what is seen
    keyNavigationEnabled: true
    model: Panel.rows
    topMargin: spaceAbove
    Accessible.name: Panel.texts.portList
    Accessible.role: Accessible.List
    Component.onCompleted: Search.scrollProxy = proxy
    KeyNavigation.priority: KeyNavigation.AfterItem
    Keys.onEnterPressed: Panel.toggle(currentIndex)
    Keys.onLeftPressed: Panel.setExpanded(currentIndex, false)
    Keys.onReturnPressed: Panel.toggle(currentIndex)
    Keys.onRightPressed: Panel.setExpanded(currentIndex, true)
    Keys.onSpacePressed: Panel.toggle(currentIndex)
    onMovementStarted: proxy.stop()

    delegate: DelegateChooser {
        role: "kind"

        DelegateChoice {
            roleValue: "portHeader"

            PortCard {
            }
        }
        DelegateChoice {
            roleValue: "portPower"

            PortPower {
            }
        }
        DelegateChoice {
            roleValue: "nothingAttached"

            NothingAttached {
            }
        }
        DelegateChoice {
            roleValue: "partner"

            PartnerNotice {
            }
        }
        DelegateChoice {
            roleValue: "busHeader"

            StandaloneBusHeader {
            }
        }
        DelegateChoice {
            roleValue: "chargerHeader"

            ChargerCardHeader {
            }
        }
        DelegateChoice {
            roleValue: "chargerBody"

            ChargerCardBody {
            }
        }
        DelegateChoice {
            roleValue: "tbDevice"

            ExpandableRow {
                id: tbRow

                TBDeviceRow {
                    canExpand: tbRow.canExpand
                    content: tbRow.content
                    isExpanded: tbRow.isExpanded
                    width: parent.width
                }
            }
        }
        DelegateChoice {
            roleValue: "usbBus"

            ExpandableRow {
                id: busRow

                USBBusHeaderRow {
                    canExpand: busRow.canExpand
                    content: busRow.content
                    isExpanded: busRow.isExpanded
                    width: parent.width
                }
            }
        }
        DelegateChoice {
            roleValue: "usbDevice"

            ExpandableRow {
                id: deviceRow

                USBDeviceDetailRow {
                    canExpand: deviceRow.canExpand
                    content: deviceRow.content
                    isExpanded: deviceRow.isExpanded
                    width: parent.width
                }
            }
        }
        DelegateChoice {
            roleValue: "charger"

            ExpandableRow {
                id: chargerRow

                ChargerRow {
                    content: chargerRow.content
                    width: parent.width
                }
            }
        }
        DelegateChoice {
            roleValue: "chargingOnly"

            ExpandableRow {
                id: chargingRow

                ChargingOnlyRow {
                    content: chargingRow.content
                    width: parent.width
                }
            }
        }
    }

    ScrollProxy {
        id: proxy

        list: list
        visibleHeight: list.visibleHeight
    }
}
