#include "reports/container_hubs.h"
#include "reports/hub_samples.h"
#include "support/bus_text.h"
#include "support/sample_records.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using Buses = std::vector<USBBus>;

TEST(ContainerHubs, TwoHalvesOfAHubBecomeOneDevice) {
  const Buses buses = {addOnBus("USB30Bus", {fast("hub 3", "H", {plain("disk"), plain("camera")})}),
                       addOnBus("USB20Bus", {slow("hub 2", "H", {plain("keyboard")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  hub 3 super_speed\n"
                                                "    disk\n"
                                                "    camera\n"
                                                "    keyboard\n");
}

TEST(ContainerHubs, AnInternalBusStaysWhenItBecomesEmpty) {
  const Buses buses = {addOnBus("USB30Bus", {fast("hub 3", "H")}),
                       internalBus({slow("hub 2", "H", {plain("keyboard")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  hub 3 super_speed\n"
                                                "    keyboard\n"
                                                "USB31Bus\n");
}

TEST(ContainerHubs, ABusWithAnotherDeviceStays) {
  const Buses buses = {
      addOnBus("USB30Bus", {fast("hub 3", "H")}),
      addOnBus("USB20Bus", {plain("mouse"), slow("hub 2", "H", {plain("keyboard")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  hub 3 super_speed\n"
                                                "    keyboard\n"
                                                "USB20Bus\n"
                                                "  mouse\n");
}

TEST(ContainerHubs, ABusThatWasEmptyBeforeStays) {
  const Buses buses = {addOnBus("USB31Bus", {}), addOnBus("USB30Bus", {fast("hub 3", "H")}),
                       addOnBus("USB20Bus", {slow("hub 2", "H")})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB31Bus\n"
                                                "USB30Bus\n"
                                                "  hub 3 super_speed\n");
}

TEST(ContainerHubs, TheFastestStaysAndTheChildrenKeepTheOrderOfTheReport) {
  const Buses buses = {
      addOnBus("USB20Bus", {slow("hub 2", "H", {plain("keyboard"), plain("mouse")})}),
      addOnBus("USB30Bus", {fast("hub 3", "H", {plain("disk")})}),
      addOnBus("USB11Bus", {slow("another hub 2", "H", {plain("tablet")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  hub 3 super_speed\n"
                                                "    keyboard\n"
                                                "    mouse\n"
                                                "    disk\n"
                                                "    tablet\n");
}

TEST(ContainerHubs, OfEquallyFastInstancesTheFirstStays) {
  const Buses buses = {addOnBus("first", {slow("hub 2", "H", {plain("a")})}),
                       addOnBus("second", {fast("hub 3", "H", {plain("b")})}),
                       addOnBus("third", {fast("another hub 3", "H", {plain("c")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "second\n"
                                                "  hub 3 super_speed\n"
                                                "    a\n"
                                                "    b\n"
                                                "    c\n");
}

TEST(ContainerHubs, OfInstancesWithoutSpeedTheFirstStays) {
  USBDevice first = plain("hub one", {plain("a")});
  USBDevice second = plain("hub two", {plain("b")});
  first.containerID = second.containerID = "H";
  second.speed = "warp_speed";
  EXPECT_EQ(busText(mergeContainerHubs({addOnBus("one", {first}), addOnBus("two", {second})})),
            "one\n"
            "  hub one\n"
            "    a\n"
            "    b\n");
}

TEST(ContainerHubs, InstancesMayShareABus) {
  const Buses buses = {
      addOnBus("USB31Bus", {plain("mouse"), fast("hub 3", "H", {plain("disk")}), plain("camera"),
                            slow("hub 2", "H", {plain("keyboard")}), plain("tablet")})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB31Bus\n"
                                                "  mouse\n"
                                                "  hub 3 super_speed\n"
                                                "    disk\n"
                                                "    keyboard\n"
                                                "  camera\n"
                                                "  tablet\n");
}

TEST(ContainerHubs, InstancesMayStandAtDifferentDepths) {
  const Buses buses = {
      addOnBus("USB30Bus",
               {plain("monitor", {plain("panel"), fast("hub 3", "H", {plain("disk")})})}),
      addOnBus("USB20Bus", {slow("hub 2", "H", {plain("keyboard")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  monitor\n"
                                                "    panel\n"
                                                "    hub 3 super_speed\n"
                                                "      disk\n"
                                                "      keyboard\n");
}

TEST(ContainerHubs, ADeviceStaysWhenTheOnlyOneBehindItGoes) {
  const Buses buses = {addOnBus("USB30Bus", {fast("hub 3", "H")}),
                       addOnBus("USB20Bus", {plain("monitor", {slow("hub 2", "H")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  hub 3 super_speed\n"
                                                "USB20Bus\n"
                                                "  monitor\n");
}

TEST(ContainerHubs, EachContainerMergesOnItsOwn) {
  const Buses buses = {
      addOnBus("USB30Bus", {fast("A3", "A", {plain("a")}), fast("B3", "B", {plain("b")})}),
      addOnBus("USB20Bus", {slow("B2", "B", {plain("bb")}), slow("A2", "A", {plain("aa")}),
                            slow("C2", "C", {plain("c")})})};
  EXPECT_EQ(busText(mergeContainerHubs(buses)), "USB30Bus\n"
                                                "  A3 super_speed\n"
                                                "    a\n"
                                                "    aa\n"
                                                "  B3 super_speed\n"
                                                "    b\n"
                                                "    bb\n"
                                                "USB20Bus\n"
                                                "  C2 high_speed\n"
                                                "    c\n");
}

TEST(ContainerHubs, NothingChangesWithoutTwoInstancesOfAContainer) {
  const Buses buses = {addOnBus("USB30Bus", {fast("A3", "A", {plain("a")}), plain("mouse")}),
                       addOnBus("USB20Bus", {slow("B2", "B", {plain("b")})}),
                       addOnBus("USB11Bus", {})};
  const Buses merged = mergeContainerHubs(buses);
  EXPECT_EQ(busText(merged), busText(buses));
  EXPECT_EQ(idsOf(merged), idsOf(buses));
}

TEST(ContainerHubs, NothingChangesWithoutContainers) {
  const Buses buses = {addOnBus("USB30Bus", {plain("hub", {plain("a")})}),
                       addOnBus("USB20Bus", {plain("hub", {plain("b")})})};
  EXPECT_EQ(idsOf(mergeContainerHubs(buses)), idsOf(buses));
  EXPECT_TRUE(mergeContainerHubs({}).empty());
}

TEST(ContainerHubs, TheEmptyIdentifierIsNoContainer) {
  const Buses buses = {addOnBus("USB30Bus", {fast("hub", "", {plain("a")})}),
                       addOnBus("USB20Bus", {slow("hub", "", {plain("b")})})};
  EXPECT_EQ(idsOf(mergeContainerHubs(buses)), idsOf(buses));
}

TEST(ContainerHubs, IdentifiersDifferByTheirCase) {
  const Buses buses = {addOnBus("USB30Bus", {fast("hub", "abc")}),
                       addOnBus("USB20Bus", {slow("hub", "ABC")})};
  EXPECT_EQ(idsOf(mergeContainerHubs(buses)), idsOf(buses));
}

TEST(ContainerHubs, TheHubThatStaysGetsANewIdentity) {
  const Buses buses = {addOnBus("USB30Bus", {fast("hub 3", "H", {plain("disk")})}),
                       addOnBus("USB20Bus", {slow("hub 2", "H", {plain("keyboard")})})};
  const Buses merged = mergeContainerHubs(buses);
  EXPECT_NE(merged.at(0).devices[0].id, buses[0].devices[0].id);
  EXPECT_NE(merged.at(0).devices[0].id, buses[1].devices[0].id);
}

TEST(ContainerHubs, AMergedDeviceWithNothingBehindItGetsANewIdentityToo) {
  const Buses buses = {addOnBus("USB30Bus", {fast("reader 3", "R")}),
                       addOnBus("USB20Bus", {slow("reader 2", "R")})};
  const Buses merged = mergeContainerHubs(buses);
  EXPECT_EQ(busText(merged), "USB30Bus\n"
                             "  reader 3 super_speed\n");
  EXPECT_NE(merged.at(0).devices[0].id, buses[0].devices[0].id);
}

TEST(ContainerHubs, TheHubThatStaysKeepsItsOwnFields) {
  USBDevice fastHalf = fast("hub 3", "H");
  fastHalf.busPower = 900;
  fastHalf.serialNumber = "S3";
  fastHalf.physicalPort = 2;
  fastHalf.volumes = {{"Data", "/Volumes/Data"}};
  USBDevice slowHalf = slow("hub 2", "H", {plain("keyboard")});
  slowHalf.busPower = 500;
  slowHalf.busPowerUsed = 100;
  slowHalf.volumes = {{"Other", "/Volumes/Other"}};
  const Buses merged =
      mergeContainerHubs({addOnBus("USB20Bus", {slowHalf}), addOnBus("USB30Bus", {fastHalf})});
  const USBDevice& hub = merged.at(0).devices[0];
  EXPECT_EQ(hub.name, "hub 3");
  EXPECT_EQ(hub.containerID, "H");
  EXPECT_EQ(hub.busPower, 900);
  EXPECT_EQ(hub.busPowerUsed, std::nullopt);
  EXPECT_EQ(hub.serialNumber, "S3");
  EXPECT_EQ(hub.physicalPort, 2);
  EXPECT_EQ(hub.volumes, fastHalf.volumes);
}

TEST(ContainerHubs, BusesKeepTheirOrderAndTheirOwnFields) {
  const Buses buses = {addOnBus("z", {plain("mouse")}), addOnBus("y", {slow("hub 2", "H")}),
                       internalBus({fast("hub 3", "H")}), addOnBus("x", {plain("disk")})};
  const Buses merged = mergeContainerHubs(buses);
  EXPECT_EQ(busText(merged), "z\n"
                             "  mouse\n"
                             "USB31Bus\n"
                             "  hub 3 super_speed\n"
                             "x\n"
                             "  disk\n");
  EXPECT_EQ(merged.at(0).hostController, "AppleUSBXHCIPCI");
  EXPECT_EQ(merged.at(1).hostController, "AppleT6020USBXHCI");
}

TEST(ContainerHubs, TheInputStaysAsItWas) {
  const Buses buses = {addOnBus("USB30Bus", {fast("hub 3", "H", {plain("disk")})}),
                       addOnBus("USB20Bus", {slow("hub 2", "H", {plain("keyboard")})})};
  const std::string before = busText(buses);
  const std::vector<Uuid> idsBefore = idsOf(buses);
  mergeContainerHubs(buses);
  EXPECT_EQ(busText(buses), before);
  EXPECT_EQ(idsOf(buses), idsBefore);
}

} // namespace
} // namespace tamberline
