#include "inventory/inventory.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tamberline {
namespace {

using nlohmann::json;
using Kind = InventoryItem::Kind;

json deskDocument() {
  return json::parse(R"json({
    "portPowerOut": {"1": {"usedWatts": 8.5}, "x": {}, "2": 3},
    "ports": [{"portNumber": 1, "agreedPower": {"watts": 15}}],
    "portTree": [
      {"kind": "tbPort", "id": "/port1", "localKey": "port1",
       "bus": {"busNumber": 1, "port": {"isConnected": true}}, "children": [
        {"kind": "tbDevice", "id": "/port1/tb:0xD0", "localKey": "tb:0xD0",
         "device": {"name": "Harbour Dock", "vendorName": "Harbour", "uid": "0xD0",
                    "upstreamSpeedGbps": 20, "upstreamLanes": 2,
                    "link": {"transmitGbps": 120, "receiveGbps": 40}},
         "children": [
          {"kind": "usbBus", "localKey": "bus:USB31Bus", "bus": {"displayName": "USB 3.1 Bus"},
           "children": [
            {"kind": "usbDevice", "localKey": "usb:1", "busMaxGbps": 10,
             "device": {"name": "hub_device", "vendorID": "0xE21C  (Harbour)", "productID": "0x1125",
                        "serialNumber": null, "containerID": "C", "speedGbps": 0.48,
                        "busPowerUsed": 100,
                        "volumes": [{"name": "Data", "mountPoint": "/Volumes/Data"}]},
             "children": []}]}]}]},
      {"kind": "charger", "localKey": "charger",
       "charger": {"name": "96W Adapter", "ratedWatts": 96, "currentWatts": 58}, "children": []}]
  })json");
}

TEST(Inventory, ListsEveryNodeBelowItsParent) {
  const Inventory inventory = inventoryOf(deskDocument());
  ASSERT_EQ(inventory.size(), 5U);
  const InventoryItem& port = inventory[0];
  EXPECT_EQ(port.kind, Kind::port);
  EXPECT_EQ(port.name, "Thunderbolt Port 1");
  EXPECT_TRUE(port.isConnected);
  EXPECT_EQ(port.measuredWatts, 8.5);
  EXPECT_EQ(port.agreedWatts, 15.0);
  const InventoryItem& dock = inventory[1];
  EXPECT_EQ(dock.parent, 0U);
  EXPECT_EQ(dock.portNumber, 1);
  EXPECT_EQ(dock.serialNumber, "0xD0");
  EXPECT_EQ(dock.speedGbps, 40.0) << "the slower direction";
  const InventoryItem& hub = inventory[3];
  EXPECT_EQ(hub.name, "USB Hub");
  EXPECT_EQ(hub.vendorID, "0xe21c");
  EXPECT_EQ(hub.speedGbps, 0.48);
  EXPECT_EQ(hub.maxGbps, 10.0);
  EXPECT_EQ(hub.ratedMa, 100);
  EXPECT_EQ(hub.volumes, (std::vector<InventoryVolume>{{"Data", "/Volumes/Data"}}));
  EXPECT_EQ(placeOf(inventory, hub), "Thunderbolt Port 1 › Harbour Dock");
  const InventoryItem& adapter = inventory[4];
  EXPECT_EQ(adapter.parent, std::nullopt);
  EXPECT_EQ(adapter.ratedWatts, 96);
  EXPECT_EQ(adapter.deliveredWatts, 58);
  EXPECT_EQ(portLabelOf(adapter), "");
}

TEST(Inventory, TakesTheLanesTogetherIfThereIsNoLink) {
  json document = deskDocument();
  document["portTree"][0]["children"][0]["device"]["link"] = nullptr;
  EXPECT_EQ(inventoryOf(document)[1].speedGbps, 40.0);
}

TEST(Inventory, TakesMistypedMembersForAbsentOnes) {
  for (const char* value : {"null", "1", "\"text\"", "[]", "{}", "true", "[1, [2]]", "1e400"}) {
    const json wrong = json::parse(value, nullptr, false);
    for (const char* pointer :
         {"/portTree", "/portTree/0", "/portTree/0/bus", "/portTree/0/children", "/portTree/0/kind",
          "/portTree/0/children/0/device", "/portTree/0/children/0/device/link",
          "/portTree/0/bus/port", "/ports", "/portPowerOut", "/portTree/1/charger"}) {
      json document = deskDocument();
      document[json::json_pointer(pointer)] = wrong.is_discarded() ? json() : wrong;
      EXPECT_LE(inventoryOf(document).size(), 5U) << pointer << " " << value;
    }
  }
}

TEST(Inventory, LeavesOutWhatIsNestedDeeperThanAnyTree) {
  json node = {{"kind", "usbDevice"}, {"children", json::array()}};
  for (int depth = 0; depth < 2000; ++depth) {
    json above = {{"kind", "usbDevice"}};
    above["children"].push_back(std::move(node));
    node = std::move(above);
  }
  json document;
  document["portTree"].push_back(std::move(node));
  EXPECT_EQ(inventoryOf(document).size(), 513U);
}

TEST(Inventory, KnowsDevicesBySerialNumberOrContainer) {
  const InventoryItem stick{.vendorID = "0x1", .productID = "0x2", .serialNumber = "S"};
  const InventoryItem other{.vendorID = "0x1", .productID = "0x3", .serialNumber = "S"};
  const InventoryItem boxed{.vendorID = "0x1", .productID = "0x2", .containerID = "S"};
  EXPECT_NE(identityOf(stick), "");
  EXPECT_NE(identityOf(stick), identityOf(other));
  EXPECT_NE(identityOf(stick), identityOf(boxed));
  EXPECT_EQ(identityOf({.vendorID = "0x1", .productID = "0x2"}), "");
  EXPECT_EQ(identityOf({.kind = Kind::port, .serialNumber = "S"}), "");
}

TEST(Inventory, WritesSpeedsAsPeopleDo) {
  EXPECT_EQ(speedText(0.0015), "1.5 Mb/s");
  EXPECT_EQ(speedText(0.48), "480 Mb/s");
  EXPECT_EQ(speedText(10), "10 Gb/s");
}

} // namespace
} // namespace tamberline
