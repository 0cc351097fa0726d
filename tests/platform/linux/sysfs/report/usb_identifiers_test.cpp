#include "platform/linux/sysfs/report/usb_identifiers.h"

#include <gtest/gtest.h>

namespace tamberline::sysfs {
namespace {

UsbDevice hub(const char* megabits, std::optional<std::string> container = {}) {
  return {
      .megabitsPerSecond = megabits, .isHub = true, .descriptorContainerId = std::move(container)};
}

const UsbAddress slow{1, {2}};
const UsbAddress fast{2, {1}};

TEST(HubHalves, HaveTheContainerThatBothDescribe) {
  const UsbTopology usb{.devices = {{slow, hub("480", "C")}, {fast, hub("5000", "C")}},
                        .ports = {}};
  EXPECT_EQ(containersOfHubHalves(usb),
            (std::map<UsbAddress, std::string>{{slow, "C"}, {fast, "C"}}));
}

TEST(HubHalves, HaveOneForTheirReceptacleWhereTheyDescribeNone) {
  const UsbTopology usb{.devices = {{slow, hub("480")}, {fast, hub("10000")}},
                        .ports = {{slow, {.peer = fast}}, {fast, {.peer = slow}}}};
  EXPECT_EQ(containersOfHubHalves(usb),
            (std::map<UsbAddress, std::string>{{slow, "receptacle 1-2 2-1"},
                                               {fast, "receptacle 1-2 2-1"}}));
}

TEST(HubHalves, OfHubsWithOneContainerForAllAreToldByTheirReceptacles) {
  const UsbAddress slowBelow{1, {2, 4}};
  const UsbAddress fastBelow{2, {1, 4}};
  const UsbTopology usb{.devices = {{slow, hub("480", "C")},
                                    {fast, hub("5000", "C")},
                                    {slowBelow, hub("480", "C")},
                                    {fastBelow, hub("5000", "C")}},
                        .ports = {{slow, {.peer = fast}}, {slowBelow, {.peer = fastBelow}}}};
  EXPECT_EQ(containersOfHubHalves(usb),
            (std::map<UsbAddress, std::string>{{slow, "receptacle 1-2 2-1"},
                                               {fast, "receptacle 1-2 2-1"},
                                               {slowBelow, "receptacle 1-2.4 2-1.4"},
                                               {fastBelow, "receptacle 1-2.4 2-1.4"}}));
}

TEST(HubHalves, AreOnlyHubsOfBothKinds) {
  const UsbDevice drive{.megabitsPerSecond = "5000"};
  const struct {
    UsbDevice first;
    UsbDevice second;
  } table[] = {
      {hub("480"), drive},
      {hub("480"), hub("12")},
      {hub("5000", "C"), hub("10000", "C")},
  };
  for (const auto& row : table) {
    const UsbTopology usb{.devices = {{slow, row.first}, {fast, row.second}},
                          .ports = {{slow, {.peer = fast}}}};
    EXPECT_TRUE(containersOfHubHalves(usb).empty());
  }
  const UsbTopology alone{.devices = {{slow, hub("480", "C")}}, .ports = {{slow, {.peer = fast}}}};
  EXPECT_TRUE(containersOfHubHalves(alone).empty());
}

} // namespace
} // namespace tamberline::sysfs
