#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/volume_buttons.h"

namespace tamberline {
namespace {

using namespace std::chrono_literals;

/// A panel on a scanner that really tests and ejects a volume, in steps that the test triggers.
class LiveVolumes : public PanelFixture {
protected:
  void SetUp() override {
    answerWithDisk(*machine);
    openPanel({.areVolumesLive = true});
    expandAll();
  }

  /// Presses a button without running the work that this posts.
  void start(const QString& buttonName) { find(QAccessible::Button, buttonName).press(); }

  void finishOneStep() {
    queue->finishOneBackgroundWork();
    draw();
  }

  bool isEnabled(const QString& buttonName) {
    return find(QAccessible::Button, buttonName).item()->isEnabled();
  }
};

TEST_F(LiveVolumes, ShowEveryPhaseOfATest) {
  start(testName);
  EXPECT_TRUE(isTextShown("Writing…"));
  EXPECT_FALSE(isEnabled(ejectName));
  finishOneStep();
  EXPECT_TRUE(isTextShown("Reading…"));
  EXPECT_FALSE(isEnabled(ejectName));
  finishOneStep();
  EXPECT_TRUE(isTextShown("Reading…")); // until the file is removed
  finishOneStep();
  EXPECT_FALSE(isTextShown("Reading…"));
  EXPECT_TRUE(isShown(QAccessible::Button, retestName));
  EXPECT_TRUE(isEnabled(ejectName));
  EXPECT_TRUE(files->files().empty());
}

TEST_F(LiveVolumes, CanBeTestedAgainAfterAFailure) {
  files->createFailure = VolumeFolder::CreateFailure::readOnly;
  press(testName);
  EXPECT_TRUE(isTextShown("Volume is read-only"));
  files->createFailure.reset();
  press(retestName);
  EXPECT_FALSE(isTextShown("Volume is read-only"));
  EXPECT_EQ(
      std::get_if<BenchmarkPhase::Failed>(&scanner->benchmarks.get().at("/Volumes/Data").state),
      nullptr);
}

TEST_F(LiveVolumes, AreNotEjectedWhileTheyAreTested) {
  start(testName);
  start(ejectName);
  click(find(QAccessible::Button, ejectName).item()->mapToScene({5, 5}));
  EXPECT_TRUE(scanner->ejectStates.get().empty());
  settle();
  EXPECT_TRUE(ejector->mountPoints.empty());
}

TEST_F(LiveVolumes, KeepTheirResultThroughRescansWhileMounted) {
  files->free = 0;
  press(testName);
  rescan();
  EXPECT_TRUE(isTextShown("Not enough free space"));
  answerWithDevices(*machine, {});
  rescan();
  EXPECT_FALSE(isTextShown("Data"));
  answerWithDisk(*machine);
  rescan();
  expandAll();
  EXPECT_TRUE(isTextShown("Data"));
  EXPECT_FALSE(isTextShown("Not enough free space"));
}

TEST_F(LiveVolumes, StopTheirTestAndOfferItAgain) {
  start(testName);
  finishOneStep();
  EXPECT_TRUE(isShown(QAccessible::Button, "Reading… · Stop the test"));
  start("Reading… · Stop the test");
  finishOneStep();
  finishOneStep();
  EXPECT_TRUE(isShown(QAccessible::Button, testName));
  EXPECT_TRUE(files->files().empty());
}

TEST_F(LiveVolumes, DisappearWithTheirDeviceWhenEjected) {
  start(ejectName);
  EXPECT_TRUE(isShown(QAccessible::Indicator, "Ejecting…"));
  answerWithDevices(*machine, {});
  settle();
  advance(1s);
  EXPECT_EQ(ejector->mountPoints, std::vector<std::string>{"/Volumes/Data"});
  EXPECT_FALSE(isTextShown("Data"));
}

TEST_F(LiveVolumes, ShowWhyTheyCannotBeEjectedForFourSeconds) {
  ejector->failures = {"Volume busy"};
  press(ejectName);
  EXPECT_TRUE(isShown(QAccessible::Button, "Volume busy"));
  EXPECT_FALSE(isShown(QAccessible::Button, ejectName));
  advance(3999ms);
  EXPECT_TRUE(isShown(QAccessible::Button, "Volume busy"));
  advance(1ms);
  EXPECT_FALSE(isShown(QAccessible::Button, "Volume busy"));
  EXPECT_TRUE(isEnabled(ejectName));
}

TEST_F(LiveVolumes, ShowTheReasonToThePointerThatPressedTheButton) {
  ejector->failures = {"Volume busy"};
  const QPointF place = find(QAccessible::Button, ejectName).item()->mapToScene({5, 5});
  movePointer(place);
  click(place);
  settle();
  EXPECT_EQ(context().tooltips()->target(), nullptr);
  advance(600ms);
  ASSERT_NE(context().tooltips()->target(), nullptr);
  EXPECT_EQ(context().tooltips()->text(), "Volume busy");
}

TEST_F(LiveVolumes, CanBeEjectedAgainByTheMessageItself) {
  ejector->failures = {"Volume busy"};
  press(ejectName);
  press("Volume busy");
  EXPECT_EQ(ejector->mountPoints.size(), 2U);
}

TEST_F(LiveVolumes, ContinueTheirTestWhenThePanelCloses) {
  start(testName);
  closePanel();
  queue->settle();
  const auto& phase = scanner->benchmarks.get().at("/Volumes/Data");
  EXPECT_TRUE(std::holds_alternative<BenchmarkPhase::Done>(phase.state));
  EXPECT_TRUE(files->files().empty());
}

TEST_F(LiveVolumes, ShowAMessageFromOutsideAsPlainTextInOneLine) {
  ejector->failures = {"<b>Volume</b>\r\nbusy\u202e"};
  press(ejectName);
  EXPECT_TRUE(isShown(QAccessible::Button, QString::fromUtf8("<b>Volume</b> busy\ufffd")));
}

} // namespace
} // namespace tamberline
