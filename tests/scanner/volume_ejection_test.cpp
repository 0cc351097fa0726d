#include "scanner/volume_fixture.h"

#include <new>
#include <utility>

namespace tamberline {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;

class VolumeEjection : public VolumeFixture {
protected:
  void eject() {
    scanner->eject("/V");
    queue->settle();
  }

  std::size_t scanCount() const { return machine->askCount(Question::usb); }
};

constexpr const char* reportWithVolume = R"({"SPUSBDataType": [{"_name": "USB31Bus", "_items": [
    {"_name": "Stick", "Media": [{"volumes": [{"_name": "Data", "mount_point": "/V"}]}]}]}]})";

TEST_F(VolumeEjection, IsFollowedByAScanWhenItSucceeded) {
  eject();
  EXPECT_EQ(published, (Lines{"/V: ejecting", "nothing"}));
  EXPECT_EQ(ejector->mountPoints, Lines{"/V"});
  EXPECT_EQ(scanCount(), 1U);
}

TEST_F(VolumeEjection, IsOverBeforeTheScanBegins) {
  const auto scanning = scanner->isScanning.observe(
      [this] { published.push_back(scanner->isScanning.get() ? "scan begins" : "scan ends"); });
  eject();
  EXPECT_EQ(published, (Lines{"/V: ejecting", "nothing", "scan begins", "scan ends"}));
}

TEST_F(VolumeEjection, TakesTheDeviceAwayWithTheScan) {
  machine->answer(Question::usb, reportWithVolume);
  scan();
  ASSERT_FALSE(scanner->usbBuses.get().empty());
  answerWithEmptyReports(*machine);
  eject();
  EXPECT_TRUE(scanner->usbBuses.get().empty());
}

TEST_F(VolumeEjection, ShowsTheMessageForFourSeconds) {
  ejector->failures = {"Volume busy"};
  eject();
  EXPECT_EQ(published, (Lines{"/V: ejecting", "/V: failed: Volume busy"}));
  queue->advance(3999ms);
  EXPECT_EQ(published.size(), 2U);
  queue->advance(1ms);
  EXPECT_EQ(published.back(), "nothing");
  EXPECT_EQ(scanCount(), 0U);
}

TEST_F(VolumeEjection, TrimsTheMessage) {
  ejector->failures = {" \n\tVolume busy\r\n "};
  eject();
  EXPECT_EQ(published.back(), "/V: failed: Volume busy");
}

TEST_F(VolumeEjection, HasADefaultMessageIfTheServiceGivesNone) {
  for (const char* silence : {"", " \n"}) {
    ejector->failures = {silence};
    eject();
    EXPECT_EQ(published.back(), "/V: failed: Eject failed — a file may still be open on it");
    queue->advance(4s);
  }
  const LanguageScope french(AppLanguage::fr);
  ejector->failures = {""};
  eject();
  EXPECT_EQ(published.back(),
            "/V: failed: Échec de l’éjection — un fichier est peut-être encore ouvert");
}

TEST_F(VolumeEjection, SaysWhyADriveIsLeftAlone) {
  const std::vector<std::pair<EjectRefusal, std::string>> rows = {
      {EjectRefusal::volumeChanged, "This volume is no longer here — scan again"},
      {EjectRefusal::runningSystem, "The running system is on this drive"},
      {EjectRefusal::severalDrives, "Several drives hold this volume — none was ejected"}};
  for (const auto& [refusal, text] : rows) {
    ejector->refusal = refusal;
    eject();
    EXPECT_EQ(published.back(), "/V: failed: " + text);
    queue->advance(4s);
  }
}

TEST_F(VolumeEjection, RunsOnceWhenTheUserPressesTwice) {
  scanner->eject("/V");
  scanner->eject("/V");
  queue->settle();
  EXPECT_EQ(ejector->mountPoints.size(), 1U);
}

TEST_F(VolumeEjection, CanBeTriedAgainWhileTheMessageIsShown) {
  ejector->failures = {"Volume busy"};
  eject();
  queue->advance(2s);
  eject();
  EXPECT_EQ(published,
            (Lines{"/V: ejecting", "/V: failed: Volume busy", "/V: ejecting", "nothing"}));
  queue->advance(10s);
  EXPECT_EQ(published.size(), 4U);
}

TEST_F(VolumeEjection, DoesNotAffectANewerOneThatIsStillRunning) {
  ejector->failures = {"Volume busy"};
  eject();
  queue->advance(2s);
  scanner->eject("/V");
  ASSERT_EQ(queue->backgroundCount(), 1U);
  // The clock passes the end of the message while the second ejection is in progress.
  const auto work = [this] { return ejectText(scanner->ejectStates.get().at("/V")); };
  EXPECT_EQ(work(), "ejecting");
  queue->advanceWithoutBackground(3s);
  EXPECT_EQ(work(), "ejecting");
  queue->settle();
  EXPECT_EQ(published.back(), "nothing");
}

TEST_F(VolumeEjection, ShowsANewerMessageForFourSecondsToo) {
  ejector->failures = {"Volume busy", "Still busy"};
  eject();
  queue->advance(3s);
  eject();
  queue->advance(3999ms);
  EXPECT_EQ(published.back(), "/V: failed: Still busy");
  queue->advance(1ms);
  EXPECT_EQ(published.back(), "nothing");
}

TEST_F(VolumeEjection, DoesNotAffectAnotherVolume) {
  ejector->failures = {"Volume busy"};
  eject();
  scanner->eject("/W");
  EXPECT_EQ(published.back(), "/V: failed: Volume busy; /W: ejecting");
  queue->settle();
  EXPECT_EQ(published.back(), "/V: failed: Volume busy");
}

TEST_F(VolumeEjection, PassesTheDeviceOfTheVolumeThatWasShown) {
  files->identities["/V"] = {.text = "stick", .deviceNumber = 2065};
  scanSticks({{"/V"}});
  eject();
  EXPECT_EQ(ejector->lastDeviceNumber, 2065U);
}

TEST_F(VolumeEjection, DoesNotEjectAReplacementOfTheVolumeThatWasShown) {
  files->identities["/V"] = {.text = "shown stick"};
  scanSticks({{"/V"}});
  for (const char* present : {"other stick", ""}) {
    files->identities["/V"] = {.text = present};
    eject();
    EXPECT_EQ(published.back(), "/V: failed: This volume is no longer here — scan again");
    queue->advance(4s);
  }
  EXPECT_TRUE(ejector->mountPoints.empty());
}

TEST_F(VolumeEjection, DoesNotBeginWhileAVolumeOfTheDriveIsMeasured) {
  scanSticks({{"/V", "/W"}, {"/X"}});
  scanner->runBenchmark("/W");
  scanner->eject("/W");
  scanner->eject("/V");
  scanner->eject("/X");
  EXPECT_EQ(scanner->ejectStates.get().size(), 1U);
  queue->settle();
  EXPECT_EQ(ejector->mountPoints, Lines{"/X"});
  eject();
  EXPECT_EQ(ejector->mountPoints, (Lines{"/X", "/V"}));
}

TEST_F(VolumeEjection, DoesNotStartTwiceForOneDrive) {
  scanSticks({{"/V", "/W"}});
  scanner->eject("/W");
  scanner->eject("/V");
  queue->settle();
  EXPECT_EQ(ejector->mountPoints, Lines{"/W"});
}

TEST_F(VolumeEjection, FailsOnAnException) {
  const Observation observation = scanner->ejectStates.observe([&] {
    const auto found = scanner->ejectStates.get().find("/V");
    if (found != scanner->ejectStates.get().end() && ejectText(found->second) == "ejecting") {
      throw std::bad_alloc();
    }
  });
  eject();
  EXPECT_EQ(published.back(), "/V: failed: Eject failed — a file may still be open on it");
  queue->advance(4s);
  EXPECT_EQ(published.back(), "nothing");
}

TEST_F(VolumeEjection, IsPublishedOnTheMainThreadWhoeverRequestedIt) {
  queue->pretendOtherThread(true);
  scanner->eject("/V");
  EXPECT_TRUE(published.empty());
  queue->pretendOtherThread(false);
  queue->settle();
  EXPECT_EQ(published.size(), 2U);
}

TEST_F(VolumeEjection, DoesNotStartIfVolumesAreOnlyShown) {
  scanner = makeScanner();
  eject();
  EXPECT_TRUE(scanner->ejectStates.get().empty());
  EXPECT_EQ(scanCount(), 0U);
}

} // namespace
} // namespace tamberline
