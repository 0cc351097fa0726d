#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/volume_buttons.h"

#include <utility>

namespace tamberline {
namespace {

class PanelVolumes : public PanelFixture {
protected:
  void open(Setting setting = {}) {
    answerWithDisk(*machine);
    openPanel(setting);
    expandAll();
  }

  template <typename Phase>
  void show(Phase phase) {
    scanner->benchmarks.set({{"/Volumes/Data", BenchmarkPhase{std::move(phase)}}});
    settle();
  }

  template <typename State>
  void showEjection(State state) {
    scanner->ejectStates.set({{"/Volumes/Data", EjectState{std::move(state)}}});
    settle();
  }

  /// Like a click.
  bool isEnabled(const QString& buttonName) {
    return find(QAccessible::Button, buttonName).item()->isEnabled();
  }
};

TEST_F(PanelVolumes, CanBeTestedAndEjected) {
  open();
  EXPECT_TRUE(isTextShown("Volume"));
  EXPECT_TRUE(isTextShown("Data"));
  EXPECT_TRUE(isEnabled(testName));
  EXPECT_TRUE(isEnabled(ejectName));
  press(testName);
  EXPECT_EQ(testedVolumes, std::vector<std::string>{"/Volumes/Data"});
  press(ejectName);
  EXPECT_EQ(ejectedVolumes, std::vector<std::string>{"/Volumes/Data"});
}

TEST_F(PanelVolumes, ShowTheProgressOfTheTest) {
  open();
  show(BenchmarkPhase::Running{"Writing…"});
  EXPECT_TRUE(isTextShown("Writing…"));
  EXPECT_TRUE(isShown(QAccessible::Indicator, "Writing…"));
  EXPECT_FALSE(isShown(QAccessible::Button, testName));
  show(BenchmarkPhase::Running{"Reading…"});
  EXPECT_TRUE(isTextShown("Reading…"));
  EXPECT_FALSE(isTextShown("Writing…"));
}

TEST_F(PanelVolumes, StopTheTestWhenItsProgressIsPressed) {
  open();
  show(BenchmarkPhase::Running{"Writing…"});
  const char* stopName = "Writing… · Stop the test";
  press(stopName);
  EXPECT_EQ(stoppedVolumes, std::vector<std::string>{"/Volumes/Data"});
  click(find(QAccessible::Button, stopName).item()->mapToScene({5, 5}));
  EXPECT_EQ(stoppedVolumes.size(), 2U);
  find(QAccessible::Button, stopName).item()->forceActiveFocus();
  typeKey(Qt::Key_Return);
  EXPECT_EQ(stoppedVolumes.size(), 3U);
  show(BenchmarkPhase::Done{412.2, 1021.6});
  EXPECT_FALSE(isShown(QAccessible::Button, stopName));
}

TEST_F(PanelVolumes, CannotBeEjectedDuringTheTest) {
  open();
  show(BenchmarkPhase::Running{"Writing…"});
  EXPECT_FALSE(isEnabled(ejectName));
  const AccessibleObject eject = find(QAccessible::Button, ejectName);
  eject.press();
  click(eject.item()->mapToScene({5, 5}));
  EXPECT_TRUE(ejectedVolumes.empty());
}

TEST_F(PanelVolumes, ShowTheirSpeedAfterTheTest) {
  open();
  show(BenchmarkPhase::Done{412.2, 1021.6});
  EXPECT_TRUE(isTextShown("W 412"));
  EXPECT_TRUE(isTextShown("R 1022 MB/s"));
  EXPECT_TRUE(isEnabled(ejectName));
  press(retestName);
  EXPECT_EQ(testedVolumes, std::vector<std::string>{"/Volumes/Data"});
}

TEST_F(PanelVolumes, ShowWhyTheTestFailed) {
  open();
  show(BenchmarkPhase::Failed{"Not enough free space"});
  EXPECT_TRUE(isTextShown("Not enough free space"));
  press(retestName);
  EXPECT_EQ(testedVolumes.size(), 1U);
}

TEST_F(PanelVolumes, ShowThatTheyAreBeingEjected) {
  open();
  showEjection(EjectState::Ejecting{});
  EXPECT_TRUE(isShown(QAccessible::Indicator, "Ejecting…"));
  EXPECT_FALSE(isShown(QAccessible::Button, ejectName));
}

TEST_F(PanelVolumes, ShowWhyTheyCouldNotBeEjected) {
  open();
  showEjection(EjectState::Failed{"A file is still open"});
  press("A file is still open");
  EXPECT_EQ(ejectedVolumes.size(), 1U);
}

TEST_F(PanelVolumes, CannotBeUsedWithoutActions) {
  open({.hasActions = false});
  for (const char* name : {testName, ejectName}) {
    EXPECT_FALSE(isEnabled(name));
    find(QAccessible::Button, name).press();
  }
  EXPECT_TRUE(testedVolumes.empty());
  EXPECT_TRUE(ejectedVolumes.empty());
}

TEST_F(PanelVolumes, DoNotOpenOrCloseTheirDevice) {
  open();
  const int count = rows().rowCount();
  click(find(QAccessible::Button, testName).item()->mapToScene({5, 5}));
  EXPECT_EQ(testedVolumes.size(), 1U);
  EXPECT_EQ(rows().rowCount(), count);
}

TEST_F(PanelVolumes, KeepFocusDuringATest) {
  open();
  const AccessibleObject test = find(QAccessible::Button, testName);
  test.item()->forceActiveFocus();
  show(BenchmarkPhase::Running{"Writing…"});
  typeKey(Qt::Key_Space);
  EXPECT_TRUE(testedVolumes.empty());
  show(BenchmarkPhase::Running{"Reading…"});
  show(BenchmarkPhase::Done{412.2, 1021.6});
  EXPECT_EQ(find(QAccessible::Button, retestName).item(), test.item());
  EXPECT_TRUE(test.item()->hasActiveFocus());
  typeKey(Qt::Key_Space);
  EXPECT_EQ(testedVolumes.size(), 1U);
}

TEST_F(PanelVolumes, KeepFocusDuringAFailedEjection) {
  open();
  const AccessibleObject eject = find(QAccessible::Button, ejectName);
  eject.item()->forceActiveFocus();
  showEjection(EjectState::Ejecting{});
  showEjection(EjectState::Failed{"Volume busy"});
  EXPECT_TRUE(eject.item()->hasActiveFocus());
  scanner->ejectStates.set({});
  settle();
  EXPECT_TRUE(eject.item()->hasActiveFocus());
}

} // namespace
} // namespace tamberline
