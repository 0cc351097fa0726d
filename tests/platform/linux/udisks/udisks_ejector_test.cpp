#include "platform/linux/udisks/asked_calls.h"
#include "platform/linux/udisks/eject_text.h"
#include "platform/linux/udisks/mocked_disks.h"
#include "platform/linux/udisks/system_bus.h"
#include "platform/private_bus.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <future>
#include <limits>
#include <string>
#include <thread>

namespace tamberline {
namespace {

/// The names of the bus itself and of all its connections.
qsizetype connectionsOfBus() {
  const QDBusMessage names = SystemBus().callForAnswer(QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("ListNames")));
  return names.arguments().value(0).toStringList().size();
}

std::future<std::string> ejectInBackground(const std::string& mountPoint) {
  return std::async(std::launch::async, [mountPoint] { return eject(mountPoint); });
}

class Ejecting : public testing::Test {
protected:
  void addStick(const std::vector<std::string>& mountPoints = {"/media/stick"}) {
    disks.addDrive("stick", {{"CanPowerOff", true}});
    disks.addBlock("sdb", {.drive = "stick"});
    disks.addBlock("sdb1", {.drive = "stick", .mountPoints = mountPoints});
  }

  bool waitForCalls(const std::string& expected) const {
    return runEventsUntil([&] { return disks.calls() == expected; });
  }

  TemporaryFolder folder;
  std::unique_ptr<PrivateBus> bus = std::make_unique<PrivateBus>(folder);
  MockedDisks disks;
};

TEST_F(Ejecting, UnmountsAStickAndPowersItOff) {
  addStick();
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "ejected");
  EXPECT_EQ(disks.calls(), "sdb1.Unmount {}, may ask\n"
                           "stick.PowerOff {}, may ask\n");
}

TEST_F(Ejecting, LeavesOtherDrivesAlone) {
  addStick();
  disks.addDrive("disk", {{"CanPowerOff", true}});
  disks.addBlock("sda1", {.drive = "disk", .mountPoints = {"/media/disk"}});
  disks.addBlock("loop0", {.mountPoints = {"/media/image"}});
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "ejected");
  EXPECT_EQ(disks.calls(), "sdb1.Unmount {}, may ask\n"
                           "stick.PowerOff {}, may ask\n");
}

TEST_F(Ejecting, UnmountsEveryVolumeOfTheDriveStartingWithTheRequestedOne) {
  addStick({"/media/first"});
  disks.addBlock("sdb2", {.drive = "stick", .mountPoints = {"/media/second"}});
  disks.addBlock("sdb3", {.drive = "stick", .mountPoints = {"/media/third"}});
  disks.start();
  EXPECT_EQ(eject("/media/second"), "ejected");
  EXPECT_EQ(disks.calls(), "sdb2.Unmount {}, may ask\n"
                           "sdb1.Unmount {}, may ask\n"
                           "sdb3.Unmount {}, may ask\n"
                           "stick.PowerOff {}, may ask\n");
}

TEST_F(Ejecting, UnmountsAFileSystemFromEverywhere) {
  addStick({"/media/stick", "/srv/same stick", "/home/me/stick"});
  disks.start();
  EXPECT_EQ(eject("/srv/same stick"), "ejected");
  EXPECT_EQ(disks.calls(), "sdb1.Unmount {}, may ask\n"
                           "sdb1.Unmount {}, may ask\n"
                           "sdb1.Unmount {}, may ask\n"
                           "stick.PowerOff {}, may ask\n");
}

TEST_F(Ejecting, ContinuesWhenAFileSystemOnTwoPartitionsIsUnmountedFromBothAtOnce) {
  addStick();
  disks.addBlock("sdb2", {.drive = "stick", .mountPoints = {"/media/stick"}, .sharing = "sdb1"});
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "ejected");
  EXPECT_EQ(disks.calls(), "sdb1.Unmount {}, may ask\n"
                           "sdb2.Unmount {}, may ask\n"
                           "stick.PowerOff {}, may ask\n");
}

TEST_F(Ejecting, EjectsADisc) {
  disks.addDrive("reader", {{"Optical", true}, {"Ejectable", true}, {"CanPowerOff", true}});
  disks.addBlock("sr0", {.drive = "reader", .mountPoints = {"/media/disc"}});
  disks.start();
  EXPECT_EQ(eject("/media/disc"), "ejected");
  EXPECT_EQ(disks.calls(), "sr0.Unmount {}, may ask\n"
                           "reader.Eject {}, may ask\n");
}

TEST_F(Ejecting, EjectsTheCardOfAReaderThatCannotBePoweredOff) {
  disks.addDrive("reader", {{"Ejectable", true}});
  disks.addBlock("mmcblk0p1", {.drive = "reader", .mountPoints = {"/media/card"}});
  disks.start();
  EXPECT_EQ(eject("/media/card"), "ejected");
  EXPECT_EQ(disks.calls(), "mmcblk0p1.Unmount {}, may ask\n"
                           "reader.Eject {}, may ask\n");
}

TEST_F(Ejecting, OnlyUnmountsADriveWithoutAbilities) {
  disks.addDrive("disk");
  disks.addBlock("sda1", {.drive = "disk", .mountPoints = {"/media/disk"}});
  disks.addBlock("sda2", {.drive = "disk", .mountPoints = {"/media/more"}});
  disks.start();
  EXPECT_EQ(eject("/media/disk"), "ejected");
  EXPECT_EQ(disks.calls(), "sda1.Unmount {}, may ask\n"
                           "sda2.Unmount {}, may ask\n");
}

TEST_F(Ejecting, OnlyUnmountsTheRequestedVolumeIfThereIsNoDrive) {
  disks.addBlock("loop0", {.mountPoints = {"/media/image"}});
  disks.addBlock("loop1", {.mountPoints = {"/media/other"}});
  disks.start();
  EXPECT_EQ(eject("/media/image"), "ejected");
  EXPECT_EQ(disks.calls(), "loop0.Unmount {}, may ask\n");
}

TEST_F(Ejecting, LocksAnEncryptedVolume) {
  disks.addDrive("stick", {{"CanPowerOff", true}});
  disks.addBlock("sdb1", {.drive = "stick"});
  disks.addBlock("dm0", {.mountPoints = {"/media/secret"}, .inside = "sdb1"});
  disks.start();
  EXPECT_EQ(eject("/media/secret"), "ejected");
  EXPECT_EQ(disks.calls(), "dm0.Unmount {}, may ask\n"
                           "sdb1.Lock {}, may ask\n"
                           "stick.PowerOff {}, may ask\n");
}

TEST_F(Ejecting, LocksAllEncryptedVolumesOfTheDrive) {
  addStick();
  disks.addBlock("sdb2", {.drive = "stick"});
  disks.addBlock("sdb3", {.drive = "stick"});
  disks.addBlock("dm0", {.mountPoints = {"/media/secret"}, .inside = "sdb2"});
  disks.addBlock("dm1", {.inside = "sdb3"});
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "ejected");
  EXPECT_EQ(disks.calls(), "sdb1.Unmount {}, may ask\n"
                           "dm0.Unmount {}, may ask\n"
                           "sdb2.Lock {}, may ask\n"
                           "sdb3.Lock {}, may ask\n"
                           "stick.PowerOff {}, may ask\n");
}

TEST_F(Ejecting, LocksFromTheInsideOut) {
  disks.addDrive("stick", {{"CanPowerOff", true}});
  disks.addBlock("sdb1", {.drive = "stick"});
  disks.addBlock("dm0", {.inside = "sdb1"});
  disks.addBlock("dm1", {.mountPoints = {"/media/secret"}, .inside = "dm0"});
  disks.start();
  EXPECT_EQ(eject("/media/secret"), "ejected");
  EXPECT_EQ(disks.calls(), "dm1.Unmount {}, may ask\n"
                           "dm0.Lock {}, may ask\n"
                           "sdb1.Lock {}, may ask\n"
                           "stick.PowerOff {}, may ask\n");
}

TEST_F(Ejecting, DoesNotPowerOffADeviceWhoseOtherDriveIsInUse) {
  disks.addDrive("slot1", {{"CanPowerOff", true}, {"Ejectable", true}, {"SiblingId", "reader"}});
  disks.addDrive("slot2", {{"CanPowerOff", true}, {"Ejectable", true}, {"SiblingId", "reader"}});
  disks.addBlock("sdb1", {.drive = "slot1", .mountPoints = {"/media/card 1"}});
  disks.addBlock("sdc1", {.drive = "slot2", .mountPoints = {"/media/card 2"}});
  disks.start();
  EXPECT_EQ(eject("/media/card 1"), "ejected");
  EXPECT_EQ(eject("/media/card 2"), "ejected");
  EXPECT_EQ(disks.calls(), "sdb1.Unmount {}, may ask\n"
                           "slot1.Eject {}, may ask\n"
                           "sdc1.Unmount {}, may ask\n"
                           "slot2.PowerOff {}, may ask\n");
}

TEST_F(Ejecting, CountsAnUnlockedVolumeAsUse) {
  disks.addDrive("bay1", {{"CanPowerOff", true}, {"SiblingId", "dock"}});
  disks.addDrive("bay2", {{"CanPowerOff", true}, {"SiblingId", "dock"}});
  disks.addBlock("sdb1", {.drive = "bay1", .mountPoints = {"/media/disk"}});
  disks.addBlock("sdc1", {.drive = "bay2"});
  disks.addBlock("dm0", {.inside = "sdc1"});
  disks.start();
  EXPECT_EQ(eject("/media/disk"), "ejected");
  EXPECT_EQ(disks.calls(), "sdb1.Unmount {}, may ask\n");
}

TEST_F(Ejecting, LeavesTheDriveOfTheRunningSystemAlone) {
  disks.addDrive("disk", {{"CanPowerOff", true}});
  disks.addBlock("sda1", {.drive = "disk", .mountPoints = {"/boot/efi"}});
  disks.addBlock("sda2", {.drive = "disk"});
  disks.addBlock("dm0", {.mountPoints = {"/home", "/"}, .inside = "sda2"});
  disks.start();
  EXPECT_EQ(eject("/boot/efi"), "refused: drive of the running system");
  EXPECT_EQ(disks.calls(), "");
}

// --- refusals of the service ---

TEST_F(Ejecting, SaysWhyAVolumeCannotBeUnmounted) {
  addStick();
  const char* text = "Error unmounting /dev/sdb1: target is busy\n  (“Zoë's notes”)";
  disks.letFail("sdb1.Unmount", "org.freedesktop.UDisks2.Error.DeviceBusy", text);
  disks.start();
  EXPECT_EQ(eject("/media/stick"), std::string("failed: ") + text);
  EXPECT_EQ(disks.calls(), "sdb1.Unmount {}, may ask\n");
}

TEST_F(Ejecting, KeepsADriveWhoseOtherVolumeIsBusy) {
  addStick();
  disks.addBlock("sdb2", {.drive = "stick", .mountPoints = {"/media/busy"}});
  disks.letFail("sdb2.Unmount", "org.freedesktop.UDisks2.Error.DeviceBusy", "target is busy");
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "failed: target is busy");
  EXPECT_EQ(disks.calls(), "sdb1.Unmount {}, may ask\n"
                           "sdb2.Unmount {}, may ask\n");
}

TEST_F(Ejecting, KeepsADriveThatStaysUnlocked) {
  disks.addDrive("stick", {{"CanPowerOff", true}});
  disks.addBlock("sdb1", {.drive = "stick"});
  disks.addBlock("dm0", {.mountPoints = {"/media/secret"}, .inside = "sdb1"});
  disks.letFail("sdb1.Lock", "org.freedesktop.UDisks2.Error.Failed", "Device is in use");
  disks.start();
  EXPECT_EQ(eject("/media/secret"), "failed: Device is in use");
  EXPECT_EQ(disks.calls(), "dm0.Unmount {}, may ask\n"
                           "sdb1.Lock {}, may ask\n");
}

TEST_F(Ejecting, SaysWhyADriveCannotBeReleased) {
  addStick();
  disks.letFail("stick.PowerOff", "org.freedesktop.UDisks2.Error.Failed", "No such device");
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "failed: No such device");
}

TEST_F(Ejecting, SaysThatTheUserMayNotDoIt) {
  addStick();
  disks.letFail("sdb1.Unmount", "org.freedesktop.UDisks2.Error.NotAuthorized", "Not authorized");
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "failed: Not authorized");
}

TEST_F(Ejecting, FailsWithoutAMessageWhereTheServiceGivesNone) {
  addStick();
  disks.letFail("sdb1.Unmount", "org.freedesktop.UDisks2.Error.Failed", "");
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "failed: ");
}

// --- choice of the volume ---

TEST_F(Ejecting, AcceptsMountPointsOfAnyBytes) {
  const std::vector<std::string> mountPoints = {
      "/media/two words",      "/media/'single' \"double\" `back`",
      "/media/Übergröße 日本", "/media/-rf",
      "/media/a\nb\tc",        "/media/\xff\xfe no text \xc3",
      "/media/$HOME;ls|*?",    "/media/back\\slash\\040",
      "/media/trailing "};
  for (std::size_t index = 0; index < mountPoints.size(); ++index) {
    disks.addBlock(("loop" + std::to_string(index)).c_str(), {.mountPoints = {mountPoints[index]}});
  }
  disks.start();
  std::string expectedCalls;
  for (std::size_t index = 0; index < mountPoints.size(); ++index) {
    SCOPED_TRACE(mountPoints[index]);
    EXPECT_EQ(eject(mountPoints[index]), "ejected");
    expectedCalls += "loop" + std::to_string(index) + ".Unmount {}, may ask\n";
  }
  EXPECT_EQ(disks.calls(), expectedCalls);
}

TEST_F(Ejecting, DoesNotConfuseMountPoints) {
  using namespace std::string_literals;
  addStick({"/media/stick", "/media/\xff"});
  disks.start();
  for (const std::string& mountPoint :
       {"/media"s, "/media/sti"s, "/media/stick2"s, "/media/stick/"s, "/media/Stick"s,
        "/media/stick\0"s, "/media/\xfe"s, "/media/\xef\xbf\xbd"s, "media/stick"s, "/dev/sdb1"s,
        ""s}) {
    SCOPED_TRACE(mountPoint);
    EXPECT_EQ(eject(mountPoint), "refused: not there any more");
  }
  EXPECT_EQ(disks.calls(), "");
}

TEST_F(Ejecting, ChoosesTheDriveWithTheDeviceIfTwoClaimAVolume) {
  disks.addDrive("stick", {{"CanPowerOff", true}});
  disks.addDrive("impostor", {{"CanPowerOff", true}});
  disks.addBlock("sda1",
                 {.drive = "impostor", .deviceNumber = 2049, .mountPoints = {"/media/stick"}});
  disks.addBlock("sdb1", {.drive = "stick", .deviceNumber = 2065, .mountPoints = {"/media/stick"}});
  disks.start();
  EXPECT_EQ(eject("/media/stick", 2065), "ejected");
  EXPECT_EQ(disks.calls(), "sdb1.Unmount {}, may ask\n"
                           "stick.PowerOff {}, may ask\n");
}

TEST_F(Ejecting, ChoosesNoDriveIfTwoClaimAVolumeOfUnknownDevice) {
  disks.addDrive("stick", {{"CanPowerOff", true}});
  disks.addDrive("other", {{"CanPowerOff", true}});
  disks.addBlock("sda1", {.drive = "other", .deviceNumber = 2049, .mountPoints = {"/media/stick"}});
  disks.addBlock("sdb1", {.drive = "stick", .deviceNumber = 2065, .mountPoints = {"/media/stick"}});
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "refused: several drives");
  EXPECT_EQ(disks.calls(), "");
}

TEST_F(Ejecting, RejectsAnotherDeviceThatIsNowMountedThere) {
  disks.addDrive("stick", {{"CanPowerOff", true}});
  disks.addBlock("sdb1", {.drive = "stick", .deviceNumber = 2065, .mountPoints = {"/media/stick"}});
  disks.start();
  EXPECT_EQ(eject("/media/stick", 2081), "refused: not there any more");
  EXPECT_EQ(disks.calls(), "");
}

TEST_F(Ejecting, FindsAMountPointThatBeginsLikeAnother) {
  disks.addBlock("loop0", {.mountPoints = {"/media/stick 2"}});
  disks.addBlock("loop1", {.mountPoints = {"/media/stick"}});
  disks.addBlock("loop2", {.mountPoints = {"/media/stick/inside"}});
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "ejected");
  EXPECT_EQ(disks.calls(), "loop1.Unmount {}, may ask\n");
}

// --- invalid answers ---

TEST_F(Ejecting, TouchesNothingWhenAPropertyIsMissingOrOfAWrongType) {
  struct Property {
    const char* interface;
    const char* name;
    const char* ownKind; // the one of the wrong values that is right here
  };
  const std::vector<Property> properties = {
      {"Filesystem", "sdb1.MountPoints", ""},    {"Block", "sdb1.Drive", ""},
      {"Block", "sdb1.CryptoBackingDevice", ""}, {"Block", "sdb.Drive", ""},
      {"Block", "sdb1.DeviceNumber", "number"},  {"Drive", "stick.CanPowerOff", "flag"},
      {"Drive", "stick.Ejectable", "flag"},      {"Drive", "stick.Optical", "flag"},
      {"Drive", "stick.SiblingId", "text"}};
  addStick();
  disks.start();
  for (const Property& property : properties) {
    for (const char* kind : {"absent", "text", "number", "flag", "texts", "bytes", "numbers",
                             "variants", "map", "nested"}) {
      SCOPED_TRACE(std::string(property.name) + ": " + kind);
      if (std::string(kind) != property.ownKind) {
        disks.makeOdd(property.interface, property.name, kind);
        EXPECT_EQ(eject("/media/stick"), "failed: ");
      }
    }
    disks.makeOdd(property.interface, property.name, "own");
  }
  EXPECT_EQ(disks.calls(), "");
  EXPECT_EQ(eject("/media/stick"), "ejected");
}

TEST_F(Ejecting, TouchesNothingWhenTheListIsOfAWrongType) {
  addStick();
  disks.start();
  for (const char* kind :
       {"nothing", "text", "flat map", "texts for paths", "no variants", "no list"}) {
    SCOPED_TRACE(kind);
    disks.makeListOdd(kind);
    EXPECT_EQ(eject("/media/stick"), "failed: ");
  }
  EXPECT_EQ(disks.calls(), "");
}

TEST_F(Ejecting, TouchesNothingOnADriveThatTheServiceDoesNotList) {
  disks.addBlock("sdb1", {.drive = "gone", .mountPoints = {"/media/stick"}});
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "failed: ");
  EXPECT_EQ(disks.calls(), "");
}

TEST_F(Ejecting, FinishesIfEncryptedDevicesContainEachOther) {
  disks.addDrive("stick", {{"CanPowerOff", true}});
  disks.addBlock("dm0", {.mountPoints = {"/media/secret"}, .inside = "dm1"});
  disks.addBlock("dm1", {.inside = "dm0"});
  disks.start();
  EXPECT_EQ(eject("/media/secret"), "ejected");
  EXPECT_EQ(disks.calls(), "dm0.Unmount {}, may ask\n");
}

// --- availability of the service ---

TEST_F(Ejecting, SaysThatThereIsNoService) {
  EXPECT_EQ(eject("/media/stick"),
            "failed: The name org.freedesktop.UDisks2 was not provided by any .service files");
}

TEST_F(Ejecting, SaysThatThereIsNoBus) {
  bus.reset();
  const std::string outcome = eject("/media/stick");
  EXPECT_EQ(outcome.rfind("failed: Failed to connect to socket", 0), 0U) << outcome;
}

TEST_F(Ejecting, FindsABusThatCameLater) {
  bus.reset();
  EXPECT_NE(eject("/media/stick"), "ejected");
  bus = std::make_unique<PrivateBus>(folder);
  addStick();
  disks.start();
  EXPECT_EQ(eject("/media/stick"), "ejected");
}

TEST_F(Ejecting, SaysThatTheServiceDied) {
  addStick();
  disks.letGather("Unmount", 0);
  disks.start();
  std::future<std::string> outcome = ejectInBackground("/media/stick");
  EXPECT_TRUE(waitForCalls("sdb1.Unmount {}, may ask\n"));
  disks.stop();
  EXPECT_EQ(outcome.get(),
            "failed: Message recipient disconnected from message bus without replying");
}

TEST_F(Ejecting, FinishesWhenTheBusDies) {
  addStick();
  disks.letGather("Unmount", 0);
  disks.start();
  std::future<std::string> outcome = ejectInBackground("/media/stick");
  EXPECT_TRUE(waitForCalls("sdb1.Unmount {}, may ask\n"));
  bus.reset();
  EXPECT_EQ(outcome.get().rfind("failed: ", 0), 0U);
}

TEST_F(Ejecting, WorksOnSeveralDrivesAtOnce) {
  addStick();
  disks.addDrive("other", {{"CanPowerOff", true}});
  disks.addBlock("sdc1", {.drive = "other", .mountPoints = {"/media/other"}});
  disks.letGather("Unmount", 2); // neither is answered before both have been made
  disks.start();
  std::future<std::string> first = ejectInBackground("/media/stick");
  std::future<std::string> second = ejectInBackground("/media/other");
  EXPECT_EQ(first.get(), "ejected");
  EXPECT_EQ(second.get(), "ejected");
}

TEST_F(Ejecting, GivesTheServiceAllTheTimeThatItTakesToDoSomething) {
  addStick();
  disks.start();
  takeAskedCalls(); // discards those of other tests
  EXPECT_EQ(eject("/media/stick"), "ejected");
  constexpr int none = std::numeric_limits<int>::max();
  const std::vector<AskedCall> expected = {
      {"GetManagedObjects", 25'000}, {"Unmount", none}, {"PowerOff", none}};
  EXPECT_EQ(takeAskedCalls(), expected);
}

TEST_F(Ejecting, LeavesNoConnectionBehind) {
  for (int run = 0; run < 10; ++run) {
    eject("/media/stick");
  }
  // The bus itself and the connection that makes this call.
  EXPECT_TRUE(runEventsUntil([] { return connectionsOfBus() == 2; })) << connectionsOfBus();
}

TEST_F(Ejecting, DoesNotKeepTheProcessFromEnding) {
  testing::FLAGS_gtest_death_test_style = "threadsafe"; // starts the program again
  addStick();
  disks.letGather("Unmount", 0);
  disks.start();
  const auto endWhileEjecting = [&] {
    std::thread([] { eject("/media/stick"); }).detach();
    const bool isEjecting = waitForCalls("sdb1.Unmount {}, may ask\n");
    std::filesystem::remove_all(folder.path()); // ending the process does not remove it
    std::exit(isEjecting ? 0 : 1);
  };
  EXPECT_EXIT(endWhileEjecting(), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace tamberline
