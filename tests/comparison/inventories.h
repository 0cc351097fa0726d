#pragma once

#include "inventory/inventory.h"

#include <string>

namespace tamberline {

/// Two ports with a dock on the first: an SSD with a serial number and a mouse without one are on
/// it. A stick is on the second port.
inline Inventory deskInventory() {
  using Kind = InventoryItem::Kind;
  return {
      {.kind = Kind::port,
       .id = "/port1",
       .localKey = "port1",
       .name = "Port 1",
       .portNumber = 1,
       .measuredWatts = 8},
      {.kind = Kind::thunderboltDevice,
       .id = "/port1/tb:D",
       .localKey = "tb:D",
       .parent = 0,
       .name = "Dock",
       .serialNumber = "D",
       .portNumber = 1,
       .speedGbps = 40},
      {.kind = Kind::usbBus,
       .id = "/port1/tb:D/bus",
       .localKey = "bus",
       .parent = 1,
       .name = "USB 3.1 Bus",
       .portNumber = 1},
      {.id = "/port1/tb:D/bus/usb:S1",
       .localKey = "usb:S1",
       .parent = 2,
       .name = "SSD",
       .vendorID = "0x1",
       .productID = "0x1",
       .serialNumber = "S1",
       .portNumber = 1,
       .speedGbps = 10,
       .maxGbps = 10,
       .ratedMa = 896,
       .volumes = {{"Data", "/Volumes/Data"}}},
      {.id = "/port1/tb:D/bus/usb:M",
       .localKey = "usb:M",
       .parent = 2,
       .name = "Mouse",
       .vendorID = "0x2",
       .productID = "0x2",
       .portNumber = 1,
       .speedGbps = 0.0015},
      {.kind = Kind::port, .id = "/port2", .localKey = "port2", .name = "Port 2", .portNumber = 2},
      {.id = "/port2/usb:S2",
       .localKey = "usb:S2",
       .parent = 5,
       .name = "Stick",
       .vendorID = "0x3",
       .productID = "0x3",
       .serialNumber = "S2",
       .portNumber = 2,
       .speedGbps = 0.48,
       .ratedMa = 200},
  };
}

} // namespace tamberline
