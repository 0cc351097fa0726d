#include "ui/drawing.h"
#include "ui/drawn_items.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"

namespace tamberline {
namespace {

using namespace std::chrono_literals;

/// Everything around the list, or in its place.
class DrawnChrome : public PanelFixture {
protected:
  std::string drawn(const char* type) {
    return "\n" + Drawing(window(), context()).of(drawnItem(*window().rootObject(), type));
  }
};

TEST_F(DrawnChrome, OfTheHeader) {
  openPanel();
  EXPECT_EQ(drawn("PanelHeader"), R"(
<cable.connector> (text)  Tamberline  <arrow.clockwise> (secondary)  <rectangle.expand.vertical> (secondary)  <rectangle.compress.vertical> (secondary)
)");
}

TEST_F(DrawnChrome, OfTheFooter) {
  openPanel();
  EXPECT_EQ(drawn("PanelFooter"), R"(
on window r0: <info.circle> (secondary)  Updated just now (secondary)  Quit
)");
  closePanel();
  openPanel({.hasActions = false});
  EXPECT_EQ(drawn("PanelFooter"), R"(
on window r0: <info.circle> (secondary 0.40)  Updated just now (secondary)  Quit (0.40)
)");
}

TEST_F(DrawnChrome, OfTheSearchField) {
  openPanel();
  EXPECT_EQ(drawn("SearchField"), R"(
on field r8: <magnifyingglass> (secondary)  Search devices… (secondary)
)");
  typeText("e");
  EXPECT_EQ(drawn("SearchField"), R"(
<magnifyingglass> (secondary)  e  <xmark.circle.fill> (secondary)
)");
}

TEST_F(DrawnChrome, OfSuggestions) {
  useSample("desk");
  openPanel();
  typeText("lumen 27 ca");
  EXPECT_EQ(drawn("Suggestions"), R"(
on accent 0.08 r6: Lumen 27 Camera  Lumen Works (secondary)
Thunderbolt Port 2 › Lumen 27 USB 3 Hub (secondary)
)");
  typeText("no such device");
  EXPECT_EQ(drawn("Suggestions"), R"(
No matching devices (secondary)
)");
}

/// Return selects the first one, so only that is highlighted.
TEST_F(DrawnChrome, OfTheSecondSuggestion) {
  useSample("desk");
  openPanel();
  typeText("lumen 27");
  const QQuickItem& second = *drawnItems(*window().rootObject(), "SuggestionRow").at(1);
  EXPECT_EQ(Drawing(window(), context()).of(second).find("accent"), std::string::npos);
}

TEST_F(DrawnChrome, OfAnError) {
  machine->answer(Question::thunderbolt, "");
  openPanel();
  EXPECT_EQ(drawn("ErrorBox"), R"(
on fill orange 0.12 r10: Could not parse SPThunderboltDataType
<exclamationmark.triangle> (orange)
Scan again with the circular arrow above. If that fails too, quit the program and start it again. (secondary)
)");
}

TEST_F(DrawnChrome, OfAMachineWithoutPorts) {
  openPanel();
  EXPECT_EQ(drawn("Notice"), R"(
<cable.connector> (tertiary)
No ports detected (secondary)
Plug something in, or scan again with the circular arrow above. If nothing appears, the firmware of this computer does not describe its ports. (secondary)
)");
}

TEST_F(DrawnChrome, OfTheFirstScan) {
  openPanelWhileScanning({});
  queue->runPosted();
  draw();
  EXPECT_EQ(drawn("Notice"), R"(
Scanning ports… (secondary)
The first scan can take a few seconds. (secondary)
)");
}

/// One turn per second, while it is visible.
TEST_F(DrawnChrome, SpinsDuringAScan) {
  answerWithPorts(*machine, 1);
  openPanel();
  const QQuickItem* spinner =
      find(QAccessible::Button, "Scan again").item()->parentItem()->childItems().at(1);
  find(QAccessible::Button, "Scan again").press();
  draw();
  ASSERT_TRUE(spinner->isVisible());
  const double start = spinner->rotation();
  animations.advanceBy(250ms);
  EXPECT_NEAR(spinner->rotation() - start, 90, 1);
  animations.advanceBy(500ms);
  EXPECT_NEAR(spinner->rotation() - start, 270, 1);
  animations.advanceBy(375ms);
  EXPECT_NEAR(spinner->rotation() - start, 45, 1);
  advance(150ms);
  EXPECT_FALSE(spinner->isVisible());
}

TEST_F(DrawnChrome, SpinsWhileAVolumeIsTestedOrEjected) {
  answerWithDisk(*machine);
  scanner->benchmarks.set({{"/Volumes/Data", {BenchmarkPhase::Running{"Writing…"}}}});
  scanner->ejectStates.set({{"/Volumes/Data", {EjectState::Ejecting{}}}});
  openPanel();
  expandAll();
  const std::vector<QQuickItem*> spinners = drawnItems(*listView(), "Spinner");
  ASSERT_EQ(spinners.size(), 2U);
  for (const QQuickItem* spinner : spinners) {
    const double start = spinner->rotation();
    animations.advanceBy(100ms);
    EXPECT_NEAR(spinner->rotation() - start, 36, 1);
  }
}

} // namespace
} // namespace tamberline
