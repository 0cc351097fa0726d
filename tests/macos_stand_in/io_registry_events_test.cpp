#include "macos_stand_in/fake_mac.h"
#include "platform/macos/io_registry_events.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace tamberline {
namespace {

using Lines = std::vector<std::string>;

class IORegistryEventsTest : public testing::Test {
protected:
  void SetUp() override { FakeMac::reset(); }

  void TearDown() override {
    events.stop();
    EXPECT_EQ(mac.heldObjects, 0);
    EXPECT_EQ(mac.heldReferences, 0);
  }

  void start() {
    events.start({.registryChanged = [this] { ++registryChanges; },
                  .powerChanged = [this] { ++powerChanges; }});
  }

  /// The calls since the last time.
  Lines takeCalls() { return std::exchange(mac.calls, {}); }

  static Lines startingWith(const std::string& start, const Lines& lines) {
    Lines found;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(found),
                 [&](const std::string& line) { return line.starts_with(start); });
    return found;
  }

  FakeMac& mac = FakeMac::get();
  IORegistryEvents events;
  int registryChanges = 0;
  int powerChanges = 0;
};

TEST_F(IORegistryEventsTest, WatchAttachedAndDetachedDevices) {
  start();
  EXPECT_EQ(
      startingWith("watch", mac.calls),
      (Lines{"watch IOServiceMatched IOUSBHostDevice", "watch IOServiceMatched IOUSBDevice",
             "watch IOServiceMatched IOThunderboltSwitch",
             "watch IOServiceTerminate IOUSBHostDevice", "watch IOServiceTerminate IOUSBDevice",
             "watch IOServiceTerminate IOThunderboltSwitch"}));
}

TEST_F(IORegistryEventsTest, AreDeliveredOnTheMainQueue) {
  start();
  EXPECT_EQ(mac.calls.at(0), "create port");
  EXPECT_EQ(mac.calls.at(1), "deliver on the main queue");
}

TEST_F(IORegistryEventsTest, DoNotReportDevicesThatAreAlreadyAttached) {
  start();
  EXPECT_EQ(registryChanges, 0);
  EXPECT_EQ(powerChanges, 0);
  // Each of the six must be emptied at once: otherwise no event would ever be sent.
  EXPECT_EQ(startingWith("find none left", mac.calls).size(), 6U);
  EXPECT_EQ(startingWith("release object", mac.calls).size(), 12U);
}

TEST_F(IORegistryEventsTest, ReportEachChangeOnceAndEmptyItsIterator) {
  start();
  for (std::size_t registration = 0; registration < 6; ++registration) {
    SCOPED_TRACE(registration);
    takeCalls();
    registryChanges = 0;
    mac.notifyRegistration(registration, 3);
    EXPECT_EQ(registryChanges, 1);
    EXPECT_EQ(mac.calls,
              (Lines{"release object", "release object", "release object", "find none left"}));
  }
}

TEST_F(IORegistryEventsTest, ReportThePowerSource) {
  start();
  EXPECT_EQ(startingWith("add", mac.calls), Lines{"add power source to the main loop"});
  mac.notifyPowerSource();
  EXPECT_EQ(powerChanges, 1);
  EXPECT_EQ(registryChanges, 0);
}

TEST_F(IORegistryEventsTest, KnowExternalPowerByTheUnlimitedTime) {
  for (const auto& [timeRemaining, isExternal] :
       {std::pair(-2.0, true), std::pair(-1.0, false), std::pair(0.0, false),
        std::pair(3600.0, false)}) {
    mac.timeRemaining = timeRemaining;
    EXPECT_EQ(events.isOnExternalPower(), isExternal) << timeRemaining;
  }
}

TEST_F(IORegistryEventsTest, ReleaseEverythingOnceWhenTheyStop) {
  start();
  takeCalls();
  events.stop();
  EXPECT_EQ(mac.calls,
            (Lines{"remove power source from the main loop", "release power source",
                   "release iterator", "release iterator", "release iterator", "release iterator",
                   "release iterator", "release iterator", "destroy port"}));
}

TEST_F(IORegistryEventsTest, CanStopTwiceAndWithoutAStart) {
  events.stop();
  EXPECT_TRUE(takeCalls().empty());
  start();
  events.stop();
  takeCalls();
  events.stop();
  EXPECT_TRUE(mac.calls.empty());
}

TEST_F(IORegistryEventsTest, StopWhenDestroyed) {
  {
    IORegistryEvents others;
    others.start({.registryChanged = [] {}, .powerChanged = [] {}});
    takeCalls();
  }
  EXPECT_EQ(startingWith("release iterator", mac.calls).size(), 6U);
  EXPECT_EQ(mac.heldObjects, 0);
}

TEST_F(IORegistryEventsTest, CanBeDestroyedWithoutAStart) {
  { const IORegistryEvents others; }
  EXPECT_TRUE(mac.calls.empty());
}

TEST_F(IORegistryEventsTest, CanStartAgain) {
  start();
  events.stop();
  start();
  mac.notifyRegistration(6, 1); // the first registration of the second start
  EXPECT_EQ(registryChanges, 1);
}

TEST_F(IORegistryEventsTest, DoWithoutAClassThatTheSystemRefuses) {
  mac.refusedClasses = {"IOUSBDevice"};
  start();
  EXPECT_EQ(startingWith("watch", mac.calls).size(), 6U);
  mac.notifyRegistration(3, 1); // of the remaining four
  EXPECT_EQ(registryChanges, 1);
  events.stop();
  EXPECT_EQ(startingWith("release iterator", mac.calls).size(), 4U);
}

TEST_F(IORegistryEventsTest, DoWithoutTheRegistry) {
  mac.givesNotificationPort = false;
  start();
  EXPECT_TRUE(startingWith("watch", mac.calls).empty());
  mac.notifyPowerSource();
  EXPECT_EQ(powerChanges, 1);
  events.stop();
  EXPECT_TRUE(startingWith("destroy", mac.calls).empty());
}

TEST_F(IORegistryEventsTest, DoWithoutThePowerSource) {
  mac.givesPowerSource = false;
  start();
  mac.notifyRegistration(0, 1);
  EXPECT_EQ(registryChanges, 1);
  events.stop();
  EXPECT_TRUE(startingWith("remove", mac.calls).empty());
}

} // namespace
} // namespace tamberline
