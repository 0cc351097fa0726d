#include "model/usb_records.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace tamberline {
namespace {

struct BusName {
  const char* rawName;
  const char* displayName;
  double maxSpeedGbps;
  const char* maxSpeedLabel;
  std::int64_t portMaxMa;
};

TEST(UsbBus, HasTheKindInItsName) {
  constexpr BusName names[] = {
      {"USB31Bus", "USB 3.1 Bus", 10.0, "max 10 Gb/s", 900},
      {"USB30Bus", "USB 3.0 Bus", 5.0, "max 5 Gb/s", 900},
      {"USB20Bus", "USB 2.0 Bus", 0.48, "max 480 Mb/s", 500},
      {"My USB20 controller", "USB 2.0 Bus", 0.48, "max 480 Mb/s", 500},
      {"USB20 behind USB31", "USB 3.1 Bus", 10.0, "max 10 Gb/s", 900},
      {"USB20 behind USB30", "USB 3.0 Bus", 5.0, "max 5 Gb/s", 900},
      {"USB30 behind USB31", "USB 3.1 Bus", 10.0, "max 10 Gb/s", 900},
      {"XHCI", "USB Bus", 5.0, "", 900},
      {"usb31bus", "USB Bus", 5.0, "", 900},
      {"USB 3.1 Bus", "USB Bus", 5.0, "", 900},
      {"USB11Bus", "USB Bus", 5.0, "", 900},
      {"", "USB Bus", 5.0, "", 900},
  };
  for (const auto& [rawName, displayName, maxSpeedGbps, maxSpeedLabel, portMaxMa] : names) {
    SCOPED_TRACE(rawName);
    const USBBus bus{.rawName = rawName};
    EXPECT_EQ(bus.displayName(), displayName);
    EXPECT_EQ(bus.maxSpeedGbps(), maxSpeedGbps);
    EXPECT_EQ(bus.maxSpeedLabel(), maxSpeedLabel);
    EXPECT_EQ(bus.portMaxMa(), portMaxMa);
  }
}

TEST(UsbBus, OfTheComputersOwnControllerIsInternal) {
  for (const char* controller : {"T6000USBXHCI", "T8112USBXHCI", "T8103USBXHCI", "T6020USBXHCI",
                                 "T8132USBXHCI", "AppleT6020USBXHCI", "AppleT8103USBXHCI(2)"}) {
    SCOPED_TRACE(controller);
    EXPECT_TRUE(USBBus{.hostController = controller}.isInternalTBController());
  }
}

TEST(UsbBus, OfAnyOtherControllerIsNotInternal) {
  for (const char* controller : {"", "AppleUSBXHCIPCI", "AppleUSBXHCIFL1100", "AppleT6031USBXHCI",
                                 "t6020usbxhci", "T6020", "USBXHCI"}) {
    SCOPED_TRACE(controller);
    EXPECT_FALSE(USBBus{.hostController = controller}.isInternalTBController());
  }
}

TEST(UsbBus, IsNotInternalByItsName) {
  EXPECT_FALSE(USBBus{.rawName = "AppleT6020USBXHCI"}.isInternalTBController());
}

TEST(UsbBus, GetsANewIdentityAtEveryConstruction) {
  const USBBus bus{.rawName = "USB31Bus"};
  const USBBus sameBus{.rawName = "USB31Bus"};
  EXPECT_NE(bus.id, sameBus.id);
}

} // namespace
} // namespace tamberline
