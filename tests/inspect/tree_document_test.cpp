#include "inspect/sample_scans.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

TEST(TreeDocument, HasNodesWithMembersByKind) {
  const struct {
    const char* pointer;
    const char* kind;
    const char* kindMembers;
  } rows[] = {
      {"/portTree/0", "tbPort", "bus"},
      {"/portTree/0/children/0", "tbDevice", "device"},
      {"/portTree/0/children/0/children/1", "usbBus", "bus"},
      {"/portTree/1/children/0", "usbDevice", "device busMaxGbps portMa speedFraction speedNote"},
      {"/portTree/2/children/0", "charger", "charger"},
      {"/portTree/3/children/0", "chargingOnly", ""},
  };
  const Document document = deskDocument();
  for (const auto& row : rows) {
    SCOPED_TRACE(row.kind);
    const Document node = at(document, row.pointer);
    const std::string kindMembers =
        *row.kindMembers == '\0' ? "" : std::string(row.kindMembers) + " ";
    EXPECT_EQ(node["kind"], row.kind);
    EXPECT_EQ(keysOf(node), "id kind " + kindMembers +
                                "localKey hasChildren attachedItemCount isConnected usedMa allocMa "
                                "children");
  }
}

TEST(TreeDocument, LeavesOutPartsOfARecordThatTheTreeShowsItself) {
  const Document document = deskDocument();

  EXPECT_EQ(keysOf(at(document, "/portTree/0/bus")), "busNumber hostName uid displayName port");
  EXPECT_EQ(keysOf(at(document, "/portTree/0/children/0/device")),
            "name vendorName mode uid firmwareVersion upstreamSpeed upstreamWidth modeLabel "
            "upstreamSpeedGbps upstreamLanes upstreamLabel link drive");
  EXPECT_EQ(keysOf(at(document, "/portTree/0/children/0/children/1/bus")),
            "rawName hostController displayName maxSpeedGbps maxSpeedLabel portMaxMa "
            "isInternalTBController");
  EXPECT_EQ(keysOf(at(document, "/portTree/1/children/0/device")),
            "name vendorID productID speed manufacturer serialNumber busPower busPowerUsed "
            "containerID physicalPort volumes speedGbps speedShortLabel speedDetailLabel "
            "powerAvailableW powerUsedW powerFraction");
}

TEST(TreeDocument, DescribesAPortNode) {
  Document node = at(deskDocument(), "/portTree/0");
  node["bus"] = node["bus"]["displayName"];
  node["children"] = node["children"].size();
  EXPECT_EQ(jsonText(node), normalized(R"({
    "id": "/port1", "kind": "tbPort", "bus": "Thunderbolt Port 1", "localKey": "port1",
    "hasChildren": true, "attachedItemCount": 4, "isConnected": true, "usedMa": 200,
    "allocMa": 0, "children": 1
  })"));
}

TEST(TreeDocument, DescribesAUSBDeviceNode) {
  Document node = at(deskDocument(), "/portTree/1/children/0");
  node["device"] = node["device"]["name"];
  EXPECT_EQ(jsonText(node), normalized(R"({
    "id": "/port2/usb:0x1111:0x2222:S1", "kind": "usbDevice", "device": "Quarry SSD",
    "busMaxGbps": 10.0, "portMa": 900, "speedFraction": 0.5,
    "speedNote": "Port supports up to 10 Gb/s — device or cable is the bottleneck",
    "localKey": "usb:0x1111:0x2222:S1", "hasChildren": false, "attachedItemCount": 0,
    "isConnected": true, "usedMa": 450, "allocMa": 900, "children": []
  })"));
}

TEST(TreeDocument, HasNullForAMissingSpeedNote) {
  const Document hub = at(deskDocument(), "/portTree/0/children/0/children/1/children/0");

  EXPECT_TRUE(hub.at("speedNote").is_null());
}

TEST(TreeDocument, PlacesTheAdapterThatItShows) {
  const Document charger = at(deskDocument(), "/portTree/2/children/0/charger");

  EXPECT_EQ(charger["connectsViaUSBC"], true);
  EXPECT_EQ(charger["portLabel"], "Thunderbolt Port 3");
}

TEST(TreeDocument, ListsWhatCanBeExpandedAndWhatCanBeFound) {
  const Document document = deskDocument();

  EXPECT_EQ(jsonText(document["allContainerIDs"]), normalized(R"([
    "/port1", "/port1/tb:0xD0", "/port1/tb:0xD0/bus:USB20Bus",
    "/port1/tb:0xD0/bus:USB20Bus/usb:hub_device", "/port2", "/port3", "/port4"
  ])"));
  EXPECT_EQ(document["searchEntries"].size(), 6U);
  EXPECT_EQ(jsonText(at(document, "/searchEntries/3")), normalized(R"({
    "id": "/port1/tb:0xD0/bus:USB20Bus/usb:hub_device/usb:Keys", "name": "Keys",
    "detail": "Lettera",
    "breadcrumb": "Thunderbolt Port 1 › Harbour Dock › USB 2.0 Bus › USB Hub"
  })"));
}

} // namespace
} // namespace tamberline
