#include "model/power_records.h"
#include "support/language_scope.h"
#include "support/sample_records.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

namespace tamberline {
namespace {

struct Attachment {
  const char* what;
  HPMPort port;
  bool isCharger;
  bool isChargeOnlyDevice;
};

HPMPort with(HPMPort port, bool HPMPort::*flag) {
  port.*flag = true;
  return port;
}

HPMPort idle(HPMPort port) {
  port.connectionActive = false;
  return port;
}

TEST(HPMPort, DistinguishesAChargerFromADeviceThatOnlyDrawsPower) {
  const Attachment attachments[] = {
      {"an adapter on MagSafe", magSafePort(1), true, false},
      {"MagSafe with data", with(magSafePort(1), &HPMPort::hasData), true, false},
      {"MagSafe with video", with(magSafePort(1), &HPMPort::hasVideo), true, false},
      {"MagSafe without connection", idle(magSafePort(1)), false, false},
      {"an adapter on USB-C", chargerPort(2), true, false},
      {"a device without data on USB-C", chargeOnlyPort(2), false, true},
      {"a device with data", with(chargerPort(2), &HPMPort::hasData), false, false},
      {"a display", with(chargerPort(2), &HPMPort::hasVideo), false, false},
      {"an accessory with data", with(chargeOnlyPort(2), &HPMPort::hasData), false, false},
      {"an accessory with video", with(chargeOnlyPort(2), &HPMPort::hasVideo), false, false},
      {"USB-C without connection", idle(chargerPort(2)), false, false},
      {"an accessory without connection", idle(chargeOnlyPort(2)), false, false},
  };
  for (const Attachment& attachment : attachments) {
    SCOPED_TRACE(attachment.what);
    EXPECT_EQ(attachment.port.isCharger(), attachment.isCharger);
    EXPECT_EQ(attachment.port.isChargeOnlyDevice(), attachment.isChargeOnlyDevice);
  }
}

TEST(HPMPort, AccessoriesOnMagSafeStayChargers) {
  HPMPort port = magSafePort(1);
  port.accessoryID = 5;
  EXPECT_TRUE(port.isCharger());
  EXPECT_FALSE(port.isChargeOnlyDevice());
}

TEST(HPMPort, TreatsEveryAccessoryExceptMinusOneAsADevice) {
  for (const std::int64_t accessoryID : {0, 1, 5, -2}) {
    SCOPED_TRACE(accessoryID);
    HPMPort port = chargerPort(1);
    port.accessoryID = accessoryID;
    EXPECT_TRUE(port.isChargeOnlyDevice());
    EXPECT_FALSE(port.isCharger());
  }
}

TEST(HPMPort, NamesAnActiveOrOpticalCable) {
  EXPECT_EQ(HPMPort{.activeCable = true}.cableLabel(), "active cable");
  EXPECT_EQ(HPMPort{.opticalCable = true}.cableLabel(), "optical cable");
  EXPECT_EQ((HPMPort{.activeCable = true, .opticalCable = true}.cableLabel()), "optical cable");
  EXPECT_EQ(HPMPort{}.cableLabel(), std::nullopt);
}

TEST(HPMPort, IsLabelledAsItsPort) {
  EXPECT_EQ(chargerPort(2).label(), "Thunderbolt Port 2");
  EXPECT_EQ(chargerPort(0).label(), "Thunderbolt Port 0");
  EXPECT_EQ(magSafePort(3).label(), "MagSafe");
}

TEST(HPMPort, IsLabelledInTheLanguageOfTheRun) {
  const LanguageScope scope(AppLanguage::it);
  EXPECT_EQ(chargerPort(2).label(), "Porta Thunderbolt 2");
  EXPECT_EQ(magSafePort(3).label(), "MagSafe");
}

} // namespace
} // namespace tamberline
