#include "reports/container_hubs.h"
#include "reports/hub_samples.h"
#include "support/bus_text.h"
#include "support/sample_records.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using Buses = std::vector<USBBus>;

void expectUnchanged(const Buses& buses) {
  const Buses merged = mergeContainerHubs(buses);
  EXPECT_EQ(busText(merged), busText(buses));
  EXPECT_EQ(idsOf(merged), idsOf(buses));
}

TEST(NestedHubs, MergeAtEveryLevel) {
  const Buses buses = {
      addOnBus("USB30Bus",
               {fast("A3", "A", {fast("B3", "B", {fast("C3", "C", {plain("disk")})})})}),
      addOnBus("USB20Bus",
               {slow("A2", "A",
                     {plain("keyboard"), slow("B2", "B", {slow("C2", "C", {plain("mouse")})})})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  A3 super_speed\n"
                                                "    B3 super_speed\n"
                                                "      C3 super_speed\n"
                                                "        disk\n"
                                                "        mouse\n"
                                                "    keyboard\n");
}

TEST(NestedHubs, MergeBelowDevicesThatWereTakenOver) {
  const Buses buses = {
      addOnBus("USB30Bus", {fast("A3", "A"), fast("B3", "B", {plain("disk")})}),
      addOnBus("USB20Bus",
               {slow("A2", "A",
                     {plain("monitor", {slow("B2", "B", {plain("mouse")}), plain("camera")})})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  A3 super_speed\n"
                                                "    monitor\n"
                                                "      camera\n"
                                                "  B3 super_speed\n"
                                                "    disk\n"
                                                "    mouse\n");
}

TEST(NestedHubs, AKeeperMayBeTakenOverItself) {
  const Buses buses = {addOnBus("USB20Bus", {slow("A2", "A", {fast("B3", "B", {plain("disk")})})}),
                       addOnBus("USB30Bus", {slow("B2", "B", {plain("mouse")}), fast("A3", "A")})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  A3 super_speed\n"
                                                "    B3 super_speed\n"
                                                "      disk\n"
                                                "      mouse\n");
}

TEST(NestedHubs, EveryKeeperGetsANewIdentity) {
  const Buses buses = {
      addOnBus("USB30Bus", {fast("A3", "A", {fast("B3", "B", {plain("disk")})})}),
      addOnBus("USB20Bus", {slow("A2", "A", {slow("B2", "B", {plain("mouse")})})})};
  const Buses merged = mergeContainerHubs(buses);
  const USBDevice& outer = buses[0].devices[0];
  const USBDevice& mergedOuter = merged.at(0).devices[0];
  EXPECT_NE(mergedOuter.id, outer.id);
  EXPECT_NE(mergedOuter.children[0].id, outer.children[0].id);
}

TEST(NestedHubs, AnInstanceBelowItsOwnKeeperLeavesItsChildrenThere) {
  const Buses buses = {addOnBus(
      "USB30Bus", {fast("outer", "H", {plain("disk"), slow("inner", "H", {plain("mouse")})})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  outer super_speed\n"
                                                "    disk\n"
                                                "    mouse\n");
}

TEST(NestedHubs, AnInstanceFarBelowItsOwnKeeperGoesLikeAnyOther) {
  const Buses buses = {addOnBus(
      "USB30Bus",
      {fast("outer", "H",
            {plain("between", {plain("camera"), slow("inner", "H", {plain("mouse")})})})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  outer super_speed\n"
                                                "    between\n"
                                                "      camera\n"
                                                "    mouse\n");
}

TEST(NestedHubs, OfEquallyFastInstancesTheUpperOneStays) {
  const Buses buses = {
      addOnBus("USB30Bus", {fast("outer", "H", {fast("inner", "H", {plain("disk")})})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  outer super_speed\n"
                                                "    disk\n");
}

TEST(NestedHubs, StayApartWhenTheKeeperIsBelowAnotherInstance) {
  expectUnchanged(
      {addOnBus("USB30Bus", {slow("outer", "H", {fast("inner", "H", {plain("disk")})})})});
}

TEST(NestedHubs, StayApartWhenTheKeeperIsFarBelowAnotherInstance) {
  expectUnchanged(
      {addOnBus("USB30Bus",
                {slow("outer", "H", {plain("between", {fast("inner", "H", {plain("disk")})})})})});
}

TEST(NestedHubs, StayApartTogetherWithAThirdInstanceElsewhere) {
  expectUnchanged({addOnBus("USB30Bus", {slow("outer", "H", {fast("inner", "H")})}),
                   addOnBus("USB20Bus", {slow("elsewhere", "H", {plain("mouse")})})});
}

TEST(NestedHubs, StayApartWhenTwoContainersContainEachOther) {
  expectUnchanged({addOnBus("one", {slow("A2", "A", {fast("B3", "B", {plain("disk")})})}),
                   addOnBus("two", {slow("B2", "B", {fast("A3", "A", {plain("mouse")})})})});
}

TEST(NestedHubs, StayApartWhenThreeContainersFormACycle) {
  expectUnchanged({addOnBus("one", {slow("A2", "A", {fast("B3", "B")})}),
                   addOnBus("two", {slow("B2", "B", {plain("x", {fast("C3", "C")})})}),
                   addOnBus("three", {slow("C2", "C", {fast("A3", "A", {plain("disk")})})})});
}

TEST(NestedHubs, StayApartWhenTheContainerBetweenThemDoes) {
  expectUnchanged({addOnBus(
      "USB30Bus",
      {slow("B2", "B", {slow("A2", "A", {fast("A3", "A"), fast("B3", "B", {plain("disk")})})})})});
}

TEST(NestedHubs, MergeBesideContainersThatStayApart) {
  const Buses buses = {
      addOnBus("one", {slow("A2", "A", {fast("B3", "B"), slow("C2", "C", {plain("disk")})})}),
      addOnBus("two", {slow("B2", "B", {fast("A3", "A", {plain("mouse")})})}),
      addOnBus("three", {fast("C3", "C", {plain("camera")}), slow("D2", "D", {fast("D3", "D")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "one\n"
                                                "  A2 high_speed\n"
                                                "    B3 super_speed\n"
                                                "two\n"
                                                "  B2 high_speed\n"
                                                "    A3 super_speed\n"
                                                "      mouse\n"
                                                "three\n"
                                                "  C3 super_speed\n"
                                                "    disk\n"
                                                "    camera\n"
                                                "  D2 high_speed\n"
                                                "    D3 super_speed\n");
}

TEST(NestedHubs, MergeBehindAContainerThatStaysApart) {
  const Buses buses = {addOnBus("one", {slow("A2", "A", {fast("A3", "A", {fast("C3", "C")})})}),
                       addOnBus("two", {slow("C2", "C", {plain("mouse")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "one\n"
                                                "  A2 high_speed\n"
                                                "    A3 super_speed\n"
                                                "      C3 super_speed\n"
                                                "        mouse\n");
}

TEST(NestedHubs, MergeOnTheWayToAContainerThatStaysApart) {
  const Buses buses = {addOnBus("one", {slow("A2", "A", {fast("A3", "A", {fast("C3", "C")})})}),
                       addOnBus("two", {slow("C2", "C", {fast("D3", "D", {plain("disk")})})}),
                       addOnBus("three", {slow("D2", "D", {plain("mouse")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "one\n"
                                                "  A2 high_speed\n"
                                                "    A3 super_speed\n"
                                                "      C3 super_speed\n"
                                                "        D3 super_speed\n"
                                                "          disk\n"
                                                "          mouse\n");
}

TEST(NestedHubs, MergeWhenEachKeeperContainsAnInstanceOfTheOther) {
  const Buses buses = {addOnBus("one", {fast("A3", "A", {slow("B2", "B", {plain("mouse")})})}),
                       addOnBus("two", {fast("B3", "B", {slow("A2", "A", {plain("disk")})})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "one\n"
                                                "  A3 super_speed\n"
                                                "    disk\n"
                                                "two\n"
                                                "  B3 super_speed\n"
                                                "    mouse\n");
}

TEST(NestedHubs, MergeInLongChains) {
  USBDevice fastChain = plain("disk");
  USBDevice slowChain = plain("mouse");
  for (int level = 0; level < 200; ++level) {
    const std::string containerID = std::to_string(level);
    fastChain = fast("fast", containerID, {fastChain});
    slowChain = slow("slow", containerID, {slowChain});
  }
  const Buses merged =
      mergeContainerHubs({addOnBus("one", {fastChain}), addOnBus("two", {slowChain})});
  ASSERT_EQ(merged.size(), 1U);
  EXPECT_EQ(idsOf(merged).size(), 1U + 200U + 2U);
}

/// Each hub's USB 3 half is behind the USB 2 half of the previous one, on another bus. If they were
/// merged, each hub would be behind the previous one.
Buses hubsBehindEachOther(std::size_t count) {
  Buses buses;
  for (std::size_t hub = 0; hub < count; ++hub) {
    buses.push_back(
        addOnBus("bus", {slow("slow", std::to_string(hub),
                              {fast("fast", std::to_string(hub + 1), {plain("disk")})})}));
  }
  return buses;
}

TEST(NestedHubs, MergeAcrossManyBuses) {
  const Buses merged = mergeContainerHubs(hubsBehindEachOther(200));
  ASSERT_EQ(merged.size(), 1U);
  EXPECT_EQ(idsOf(merged).size(), 1U + 201U + 200U);
}

TEST(NestedHubs, StayApartWhereTheirTreeWouldBeFarDeeperThanAnyReport) {
  constexpr std::size_t hubCount = 50'000;
  const Buses buses = hubsBehindEachOther(hubCount);
  const Buses merged = mergeContainerHubs(buses);
  EXPECT_EQ(merged.size(), hubCount);
  EXPECT_EQ(idsOf(merged), idsOf(buses));
}

/// Two trees of up to 14 devices each in which containers contain each other in every possible way;
/// each device has a different name.
class RandomTrees {
public:
  explicit RandomTrees(unsigned seed) : engine_(seed) {}

  Buses draw() {
    names_ = 0;
    return {addOnBus("one", level(3)), addOnBus("two", level(3))};
  }

private:
  unsigned upTo(unsigned limit) { return static_cast<unsigned>(engine_() % (limit + 1U)); }

  std::vector<USBDevice> level(int levelsLeft) {
    std::vector<USBDevice> devices;
    for (unsigned left = levelsLeft == 0 ? 0 : upTo(2); left > 0; --left) {
      USBDevice device = plain(std::to_string(names_++), level(levelsLeft - 1));
      device.speed = upTo(1) == 0 ? "high_speed" : "super_speed";
      device.containerID = std::string(1, static_cast<char>('A' + upTo(3)));
      if (device.containerID == "D") {
        device.containerID = std::nullopt;
      }
      devices.push_back(device);
    }
    return devices;
  }

  std::mt19937 engine_; // gives the same numbers with every library
  int names_ = 0;
};

struct Inventory {
  std::multiset<std::string> names;
  /// By container; a device without one is under its own name.
  std::map<std::string, std::multiset<std::string>> instances;
};

void takeStock(const SharedList<USBDevice>& devices, Inventory& inventory) {
  for (const USBDevice& device : devices) {
    inventory.names.insert(device.name);
    inventory.instances[device.containerID.value_or(device.name)].insert(device.name);
    takeStock(device.children, inventory);
  }
}

Inventory inventoryOf(const Buses& buses) {
  Inventory inventory;
  for (const USBBus& bus : buses) {
    takeStock(bus.devices, inventory);
  }
  return inventory;
}

TEST(NestedHubs, NeverLoseOrDuplicateADevice) {
  RandomTrees trees(20);
  for (int count = 0; count < 2000; ++count) {
    const Buses buses = trees.draw();
    SCOPED_TRACE(busText(buses));
    const Inventory before = inventoryOf(buses);
    const Inventory after = inventoryOf(mergeContainerHubs(buses));
    EXPECT_EQ(after.names.size(), std::set(after.names.begin(), after.names.end()).size());
    for (const auto& [container, instances] : before.instances) {
      const auto found = after.instances.find(container);
      ASSERT_NE(found, after.instances.end());
      const bool isMerged = found->second.size() == 1 && instances.contains(*found->second.begin());
      EXPECT_TRUE(isMerged || found->second == instances);
    }
  }
}

} // namespace
} // namespace tamberline
