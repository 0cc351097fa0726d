#include "support/sample_records.h"
#include "tree/tree_limits.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace tamberline {
namespace {

template <typename Record>
std::vector<Record> repeated(const Record& record, std::size_t count) {
  return std::vector<Record>(count, record);
}

std::string longName(std::size_t bytes) {
  return std::string(bytes, 'W');
}

bool exceedsWithUSB(std::vector<USBBus> buses) {
  return exceedsTreeLimits({.usbBuses = std::move(buses)});
}

bool exceedsWithThunderbolt(std::vector<ThunderboltDevice> devices) {
  return exceedsTreeLimits({.thunderboltBuses = {thunderboltBus(0, std::move(devices))}});
}

TEST(TreeLimits, AllowMoreThanAnyMachineHas) {
  EXPECT_FALSE(exceedsTreeLimits({}));
  EXPECT_FALSE(exceedsWithUSB({addOnBus("USB31Bus", repeated(usbDevice("Disk"), 16'000))}));
  EXPECT_FALSE(exceedsWithUSB({addOnBus(longName(1'000'000), {usbDevice(longName(1'000'000))})}));
}

TEST(TreeLimits, CountNodesOfEveryKind) {
  const USBDevice hub = usbDevice("Hub", repeated(usbDevice("Keys"), 9));
  EXPECT_FALSE(exceedsWithUSB({addOnBus("", repeated(hub, 6'553))}));
  EXPECT_TRUE(exceedsWithUSB({addOnBus("", repeated(hub, 6'554))}));
  EXPECT_FALSE(exceedsWithUSB(repeated(addOnBus("", {}), maxTreeNodes)));
  EXPECT_TRUE(exceedsWithUSB(repeated(addOnBus("", {}), maxTreeNodes + 1)));
  EXPECT_FALSE(exceedsWithThunderbolt(repeated(ThunderboltDevice{}, maxTreeNodes - 1)));
  EXPECT_TRUE(exceedsWithThunderbolt(repeated(ThunderboltDevice{}, maxTreeNodes)));
}

TEST(TreeLimits, CountTheDevicesOfAPortForEachBusOfItsNumber) {
  const auto exceedsWith = [](std::size_t busCount, std::size_t deviceCount, std::int64_t port) {
    return exceedsTreeLimits(
        {.thunderboltBuses = repeated(thunderboltBus(0), busCount),
         .usbBuses = {internalBus(repeated(usbDeviceOnPort(port, "Disk"), deviceCount))}});
  };
  EXPECT_FALSE(exceedsWith(100, 100, 0));
  EXPECT_TRUE(exceedsWith(8'000, 8'000, 0));
  EXPECT_FALSE(exceedsWith(8'000, 8'000, 1)) << "devices of another port appear nowhere";
}

TEST(TreeLimits, CountANameOnceForEverythingBehindIt) {
  const USBDevice hub = usbDevice(longName(1'000'000), repeated(usbDevice("Keys"), 32));
  EXPECT_TRUE(exceedsWithUSB({addOnBus("", {hub})}));
  EXPECT_FALSE(exceedsWithUSB({addOnBus("", {usbDevice(longName(1'000'000))})}));
  const std::vector<ThunderboltDevice> chain = repeated(thunderboltDevice("Disk"), 32);
  EXPECT_TRUE(exceedsWithThunderbolt({thunderboltDevice(longName(1'000'000), chain)}));
}

TEST(TreeLimits, CountTheNamesOfABusAndOfItsPossibleDock) {
  const std::vector<USBDevice> devices = repeated(usbDevice("Keys"), 32);
  EXPECT_TRUE(exceedsWithUSB({addOnBus(longName(1'000'000), devices)}));
  const ThunderboltDevice dock =
      thunderboltDevice("Dock", {thunderboltDevice(longName(1'000'000))});
  EXPECT_FALSE(exceedsTreeLimits({.thunderboltBuses = {thunderboltBus(0, {dock})}}));
  EXPECT_TRUE(exceedsTreeLimits({.thunderboltBuses = {thunderboltBus(0, {dock})},
                                 .usbBuses = {addOnBus("USB31Bus", devices)}}));
}

} // namespace
} // namespace tamberline
