import QtQuick
import Tamberline
import Tamberline.Controls
import Tamberline.Views
import Qt.labs.qmlmodels

// The cards of the ports. Always as high as the list area can become, so that it measures all rows
// that the window could show. The part outside the visible area is clipped and can be scrolled to.
ListView {
    id: list

    required property real visibleHeight
    // Used as margins, because a list rebuilds itself when header or footer items move.
    readonly property real roomAbove: 12
    readonly property real spaceBelow: 2
    readonly property real fullHeight: roomAbove + contentHeight + spaceBelow

    activeFocusOnTab: true
    bottomMargin: height - visibleHeight + spaceBelow
    boundsBehavior: Flickable.StopAtBounds
    cacheBuffer: 0 // rows created in advance warn if the list shrinks before they are ready
    // Suggestions leave so little of the list visible that it scrolls although its rows would fit. It keeps
    // the rows above the visible part then, because it only estimates the height of rows without a delegate.
    displayMarginBeginning: Search.isSearching ? height : 0
    highlightFollowsCurrentItem: false // the scroll proxy does this for the visible part
    keyNavigationEnabled: true
    model: Panel.rows
    topMargin: roomAbove
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
            roleValue: Views.PortHeader

            PortCard {
            }
        }
        DelegateChoice {
            roleValue: Views.PortPower

            PortPower {
            }
        }
        DelegateChoice {
            roleValue: Views.NothingAttached

            NothingAttached {
            }
        }
        DelegateChoice {
            roleValue: Views.Partner

            PartnerNotice {
            }
        }
        DelegateChoice {
            roleValue: Views.BusHeader

            StandaloneBusHeader {
            }
        }
        DelegateChoice {
            roleValue: Views.ChargerCard

            ChargerCard {
            }
        }
        DelegateChoice {
            roleValue: Views.TbDevice

            ExpandableRow {
                id: tbRow

                required property tbDeviceRow content

                TBDeviceRow {
                    answer: tbRow.answer
                    canExpand: tbRow.canExpand
                    content: tbRow.content
                    isExpanded: tbRow.isExpanded
                    width: parent.width
                }
            }
        }
        DelegateChoice {
            roleValue: Views.UsbBus

            ExpandableRow {
                id: busRow

                required property usbBusHeaderRow content

                USBBusHeaderRow {
                    answer: busRow.answer
                    canExpand: busRow.canExpand
                    content: busRow.content
                    isExpanded: busRow.isExpanded
                    width: parent.width
                }
            }
        }
        DelegateChoice {
            roleValue: Views.UsbDevice

            ExpandableRow {
                id: deviceRow

                required property usbDeviceDetailRow content

                USBDeviceDetailRow {
                    answer: deviceRow.answer
                    canExpand: deviceRow.canExpand
                    content: deviceRow.content
                    isExpanded: deviceRow.isExpanded
                    width: parent.width
                }
            }
        }
        DelegateChoice {
            roleValue: Views.Charger

            ExpandableRow {
                id: chargerRow

                required property chargerRow content

                ChargerRow {
                    answer: chargerRow.answer
                    content: chargerRow.content
                    width: parent.width
                }
            }
        }
        DelegateChoice {
            roleValue: Views.ChargingOnly

            ExpandableRow {
                id: chargingRow

                required property chargingOnlyRow content

                ChargingOnlyRow {
                    answer: chargingRow.answer
                    content: chargingRow.content
                    width: parent.width
                }
            }
        }
    }

    ReadingOrder {
        list: list
        model: Panel.rows
    }
    RowMotion {
        isAllowed: Motion.isAllowed
        list: list
        model: Panel.rows
    }
    ScrollProxy {
        id: proxy

        list: list
        visibleHeight: list.visibleHeight
    }
}
