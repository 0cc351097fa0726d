#include "inspect/sample_scans.h"

#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(PanelDocument, HasAPortCard) {
  Document card = at(deskDocument(), "/panel/cards/0");
  card["badges"] = card["badges"].size();
  card["rows"] = card["rows"].size();
  EXPECT_EQ(jsonText(card), normalized(R"({
    "card": "port", "id": "/port1", "inUse": true,
    "dotTooltip": "In use — a device is attached or powered", "title": "Thunderbolt Port 1",
    "itemCount": "4 items", "itemCountTooltip": "Number of devices attached to this port",
    "badges": 4,
    "measuredPower": {"used": "3.8 W used", "allocated": "15.0 W allocated",
      "voltageCurrent": "5.0 V · 0.75 A", "bar": {"usedFraction": 0.25, "cableFraction": 0.0},
      "tooltip": "Live measured power the Mac is delivering on this port. \"allocated\" is the negotiated USB-PD contract."},
    "agreedPower": null, "portPowerBar": {"usedMa": 200, "allocatedMa": 200, "portMaxMa": 3000,
      "used": "1.0 W port total", "allocated": null, "portMax": "15.0 W port max",
      "bar": {"usedFraction": 0.06666666666666667, "cableFraction": 0.06666666666666667},
      "tooltip": "Total rated draw of everything on this port vs the port's power capacity"},
    "rows": 1, "nothingAttached": null
  })"));
}

TEST(PanelDocument, HasNullForTheAbsentPartsOfAPortCard) {
  Scan scan;
  scan.machine->answer(Question::thunderbolt,
                       R"({"SPThunderboltDataType": [{"_name": "thunderboltusb4_bus_0"}]})");
  EXPECT_EQ(jsonText(at(scan.run(), "/panel/cards/0")), normalized(R"({
    "card": "port", "id": "/port1", "inUse": false, "dotTooltip": "Nothing attached",
    "title": "Thunderbolt Port 1", "itemCount": null, "itemCountTooltip": null, "badges": [],
    "measuredPower": null, "agreedPower": null, "portPowerBar": null, "rows": [], "nothingAttached": "Nothing attached"
  })"));
}

TEST(PanelDocument, HasBadges) {
  EXPECT_EQ(jsonText(at(deskDocument(), "/panel/cards/0/badges")), normalized(R"([
    {"kind": "capacity", "text": "≤ 15 W", "icon": null, "color": null,
     "tooltip": "Port power capacity: 3000 mA at 5 V"},
    {"kind": "video", "text": "video", "icon": null, "color": "purple",
     "tooltip": "DisplayPort video is being carried over this USB-C connection"},
    {"kind": "cable", "text": "active cable", "icon": null, "color": "secondary",
     "tooltip": "Cable type reported by the port controller"},
    {"kind": "speed", "text": "40 Gb/s ×2", "icon": null, "color": "accent",
     "tooltip": "Maximum Thunderbolt/USB link speed this port supports"}
  ])"));
  EXPECT_EQ(jsonText(at(deskDocument(), "/panel/cards/2/badges")), normalized(R"([
    {"kind": "charger", "text": "58W", "icon": "bolt.fill", "color": "green",
     "tooltip": "Power the charger is currently delivering to the Mac"}
  ])"));
}

TEST(PanelDocument, HasAThunderboltDeviceRow) {
  Document row = at(deskDocument(), "/panel/cards/0/rows/0");
  row["children"] = row["children"].size();
  EXPECT_EQ(jsonText(row), normalized(R"({
    "row": "tbDevice", "id": "/port1/tb:0xD0", "depth": 0, "isLast": true, "hasChildren": true,
    "startsExpanded": true, "tint": {"color": "accent", "opacity": 0.05}, "name": "Harbour Dock",
    "modeBadge": {"text": "USB4 40G", "icon": null, "color": "accent",
      "tooltip": "Thunderbolt / USB4 connection mode this device negotiated"},
    "ratedDraw": "1.0W",
    "speedBar": {"usedGbps": 40.0, "portMaxGbps": 40.0, "ratio": 1.0, "color": "green",
      "speedLabel": "20 Gb/s ×2 = 40 Gb/s", "portMaxLabel": "at port max ✓",
      "tooltip": "Negotiated link speed vs the port's maximum. If it's below the max, the device or cable is the bottleneck."},
    "link": {"transmitGbps": 40.0, "receiveGbps": 40.0, "transmitLanes": 2, "receiveLanes": 2,
      "isAuthorized": null, "text": "Link each way: 40 Gb/s, 2 lanes"},
    "children": 2, "answer": null
  })"));
}

TEST(PanelDocument, HasNullForTheAbsentPartsOfAThunderboltDeviceRow) {
  EXPECT_EQ(jsonText(at(deskDocument(), "/panel/cards/0/rows/0/children/0")), normalized(R"({
    "row": "tbDevice", "id": "/port1/tb:0xD0/tb:/Bare", "depth": 1, "isLast": false,
    "hasChildren": false, "startsExpanded": false, "tint": {"color": "accent", "opacity": 0.05},
    "name": "Bare", "modeBadge": null, "ratedDraw": null, "speedBar": null, "link": null, "children": [],
    "answer": null
  })"));
}

TEST(PanelDocument, HasABusRow) {
  Document row = at(deskDocument(), "/panel/cards/0/rows/0/children/1");
  row["children"] = row["children"].size();
  EXPECT_EQ(jsonText(row), normalized(R"({
    "row": "usbBus", "id": "/port1/tb:0xD0/bus:USB20Bus", "depth": 1, "isLast": true,
    "hasChildren": true, "startsExpanded": false, "tint": {"color": "grey", "opacity": 0.06},
    "name": "USB 2.0 Bus", "ratedDraw": "1.0W rated", "children": 1, "answer": null
  })"));
}

TEST(PanelDocument, HasAUSBDeviceRow) {
  Document row = at(deskDocument(), "/panel/cards/1/rows/0");
  row["speedBar"] = keysOf(row["speedBar"]);
  row["powerBar"].erase("tooltip");
  EXPECT_EQ(jsonText(row), normalized(R"({
    "row": "usbDevice", "id": "/port2/usb:0x1111:0x2222:S1", "depth": 0, "isLast": true,
    "hasChildren": false, "startsExpanded": false,
    "tint": {"color": "textBackground", "opacity": 0.5}, "icon": "externaldrive",
    "name": "Quarry SSD", "speedText": "5 Gb/s", "speedColor": "amber",
    "speedNote": {"title": "Why isn't this at full speed?",
      "note": "Port supports up to 10 Gb/s — device or cable is the bottleneck"},
    "hubTotal": null,
    "speedBar": "usedGbps portMaxGbps ratio color speedLabel portMaxLabel tooltip",
    "powerBar": {"usedMa": 450, "allocatedMa": 900, "portMaxMa": 900, "used": "2.2 W rated",
      "allocated": "· 4.5 W allocated", "portMax": "4.5 W port max",
      "bar": {"usedFraction": 0.5, "cableFraction": 1.0}},
    "volumes": [{"label": "Volume", "name": "Data", "mountPoint": "/Volumes/Data"}],
    "children": [], "answer": null
  })"));
}

TEST(PanelDocument, HasAHubRow) {
  Document row = at(deskDocument(), "/panel/cards/0/rows/0/children/1/children/0");
  row["powerBar"].erase("tooltip");
  row["children"] = row["children"].size();
  EXPECT_EQ(jsonText(row), normalized(R"json({
    "row": "usbDevice", "id": "/port1/tb:0xD0/bus:USB20Bus/usb:hub_device", "depth": 2,
    "isLast": true, "hasChildren": true, "startsExpanded": false,
    "tint": {"color": "grey", "opacity": 0.06}, "icon": "arrow.triangle.branch",
    "name": "USB Hub", "speedText": "—", "speedColor": "orange", "speedNote": null,
    "hubTotal": {"text": "1.0W total", "tooltip": "1.0 W hub total (rated draw)"},
    "speedBar": null,
    "powerBar": {"usedMa": 100, "allocatedMa": 100, "portMaxMa": 500,
      "used": "0.5 W own draw (rated)", "allocated": null, "portMax": null,
      "bar": {"usedFraction": 0.2, "cableFraction": 0.2}},
    "volumes": [], "children": 1, "answer": null
  })json"));
}

TEST(PanelDocument, HasAChargerRow) {
  EXPECT_EQ(jsonText(at(deskDocument(), "/panel/cards/2/rows/0")), normalized(R"({
    "row": "charger", "id": "/port3/charger", "depth": 0, "isLast": true, "hasChildren": false,
    "startsExpanded": false, "tint": {"color": "yellow", "opacity": 0.07},
    "name": "96W USB-C Power Adapter", "rated": "96 W rated", "isCharging": true, "children": [],
    "answer": null
  })"));
}

TEST(PanelDocument, HasAChargingOnlyRow) {
  Document row = at(deskDocument(), "/panel/cards/3/rows/0");
  row["badge"].erase("tooltip");
  EXPECT_EQ(jsonText(row), normalized(R"({
    "row": "chargingOnly", "id": "/port4/chargeonly", "depth": 0, "isLast": true,
    "hasChildren": false, "startsExpanded": false, "tint": {"color": "yellow", "opacity": 0.07},
    "title": "Charging only",
    "detail": "Powered, but no data connection — unlock or switch the device to data mode",
    "badge": {"text": "no data", "icon": null, "color": "orange"}, "children": [],
    "answer": {"kind": "powerWithoutData", "weight": "note",
               "headline": "Thunderbolt Port 4: power, but no data"}
  })"));
}

TEST(PanelDocument, HasAChargerCard) {
  EXPECT_EQ(jsonText(at(cornerDocument(), "/panel/cards/0")), normalized(R"({
    "card": "charger", "id": "/charger", "title": "Power Adapter", "port": "MagSafe",
    "portTooltip": "Physical port the power adapter is plugged into",
    "row": {"name": "96W USB-C Power Adapter", "rated": "96 W rated", "isCharging": true}
  })"));
}

TEST(PanelDocument, HasABusCard) {
  Document card = at(cornerDocument(), "/panel/cards/1");
  EXPECT_EQ(at(card, "/rows/0/depth"), 0);
  card["rows"] = card["rows"].size();
  EXPECT_EQ(jsonText(card), normalized(R"({
    "card": "bus", "id": "/bus:USB20Bus",
    "header": {"name": "USB 2.0 Bus", "ratedDraw": "1.0W rated"}, "rows": 1,
    "nothingAttached": null
  })"));
}

TEST(PanelDocument, SaysThatNothingIsAttachedToABus) {
  Scan scan;
  scan.machine->answer(Question::usb, R"({"SPUSBDataType": [{"_name": "USB31Bus"}]})");

  EXPECT_EQ(at(scan.run(), "/panel/cards/0/nothingAttached"), "Nothing attached");
}

} // namespace
} // namespace tamberline
