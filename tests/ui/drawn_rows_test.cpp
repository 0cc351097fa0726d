#include "ui/drawing.h"
#include "ui/drawn_items.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

namespace tamberline {
namespace {

using namespace std::chrono_literals;

/// The time in which a chevron turns.
constexpr auto turning = 150ms;

class DrawnRows : public PanelFixture {
protected:
  void open(const std::string& sample) {
    useSample(sample);
    openPanel({.fontScale = unwrappedScale});
    expandAll();
    advance(turning);
  }

  /// The row must be visible in the list.
  std::string drawn(const QString& start) { return drawnAt(indexOfRowNamed(start)); }

  std::string drawnAt(int index) {
    QMetaObject::invokeMethod(listView(), "positionViewAtIndex", Q_ARG(int, index), Q_ARG(int, 4));
    settle();
    return "\n" + Drawing(window(), context()).of(*rowItem(index));
  }
};

TEST_F(DrawnRows, OfThePortsOfADesk) {
  open("desk");
  EXPECT_EQ(drawn("Thunderbolt Port 1"), R"(
dot (fill green)  Thunderbolt Port 1  10 items (secondary) on fill grey 0.15 r5  ≤ 15 W (secondary)  40 Gb/s (accent) on accent 0.12 r4  <chevron.right> (tertiary turned 90)
--- separator
)");
  EXPECT_EQ(drawnAt(indexOfRowNamed("Thunderbolt Port 1") + 1), R"(
<bolt.fill> (blue)  8.8 W used  · (secondary)  15.0 W allocated (secondary)  5.1 V · 1.73 A (secondary)
bar fill blue, 6 high, round: 0.10 to 100%, 0.85 to 59%
<bolt.fill> (secondary)  10.4 W port total  15.0 W port max (secondary)
bar fill blue, 6 high, round: 0.10 to 100%, 0.85 to 69%
)");
  EXPECT_EQ(drawn("Thunderbolt Port 2"), R"(
dot (fill green)  Thunderbolt Port 2  3 items (secondary) on fill grey 0.15 r5  ≤ 15 W (secondary)  video (purple) on fill purple 0.12 r4  active cable (secondary) on fill secondary 0.12 r4  40 Gb/s (accent) on accent 0.12 r4  <chevron.right> (tertiary turned 90)
--- separator
)");
}

TEST_F(DrawnRows, OfAPortWithAnAdapter) {
  open("road");
  EXPECT_EQ(drawn("Thunderbolt Port 2"), R"(
dot (fill green)  Thunderbolt Port 2  1 item (secondary) on fill grey 0.15 r5  ≤ 15 W (secondary)  <bolt.fill> (green) on fill green 0.12 r4  69W (green) on fill green 0.12 r4  40 Gb/s (accent) on accent 0.12 r4  <chevron.right> (tertiary turned 90)
--- separator
)");
  EXPECT_EQ(drawn("70W USB-C Power Adapter"), R"(
on fill yellow 0.07 r6: <bolt.horizontal> (mark yellow)  70W USB-C Power Adapter  <arrow.up.circle.fill> (green)  70 W rated (green)
)");
}

TEST_F(DrawnRows, OfAnEmptyPort) {
  open("bare");
  EXPECT_EQ(drawn("Thunderbolt Port 1"), R"(
dot (fill grey 0.35)  Thunderbolt Port 1  ≤ 15 W (secondary)  40 Gb/s (accent) on accent 0.12 r4  <chevron.right> (tertiary turned 90)
--- separator
)");
  EXPECT_EQ(drawn("Nothing attached"), R"(
<minus.circle> (secondary)  Nothing attached (secondary)
)");
  collapseAll();
  advance(turning);
  EXPECT_EQ(drawn("Thunderbolt Port 1"), R"(
dot (fill grey 0.35)  Thunderbolt Port 1  ≤ 15 W (secondary)  40 Gb/s (accent) on accent 0.12 r4  <chevron.right> (tertiary)
)");
}

TEST_F(DrawnRows, OfTheCardOfAnAdapter) {
  open("desk");
  EXPECT_EQ(drawnAt(0), R"(
<bolt.fill> (mark yellow)  Power Adapter  MagSafe (secondary)
<bolt.horizontal> (mark yellow) on fill yellow 0.07 r6  140W USB-C Power Adapter on fill yellow 0.07 r6  <arrow.up.circle.fill> (green) on fill yellow 0.07 r6  140 W rated (green) on fill yellow 0.07 r6
)");
}

TEST_F(DrawnRows, OfAnAdapterThatDoesNotCharge) {
  answerWithPorts(*machine, 1);
  machine->answer(Question::power, R"({"SPPowerDataType": [
    {"_name": "sppower_ac_charger_information", "sppower_ac_charger_name": "70W Adapter",
     "sppower_ac_charger_watts": "70", "sppower_battery_charger_connected": "TRUE",
     "sppower_battery_is_charging": "FALSE", "tamberline_charger_place": "socket"}]})");
  openPanel({.fontScale = unwrappedScale});
  EXPECT_EQ(drawnAt(0), R"(
<powerplug.fill> (secondary)  Power Adapter  Power socket (secondary)
<bolt.horizontal> (secondary) on fill yellow 0.07 r6  70W Adapter on fill yellow 0.07 r6  70 W rated (secondary) on fill yellow 0.07 r6
)");
}

TEST_F(DrawnRows, OfADeviceThatOnlyCharges) {
  open("road");
  EXPECT_EQ(drawn("Charging only"), R"(
on fill yellow 0.07 r6: <bolt.fill> (mark yellow)  Charging only  no data (orange) on fill orange 0.12 r4  <info.circle> (secondary)
Powered, but no data connection — unlock or switch the device to data mode (secondary)
)");
}

TEST_F(DrawnRows, OfThunderboltDevices) {
  open("desk");
  EXPECT_EQ(drawn("Harbour 11-Port Dock"), R"(
on accent 0.05 r6: <dock.rectangle> (accent 0.80)  Harbour 11-Port Dock  TB4 (accent) on accent 0.12 r4  10.4W (secondary)  <chevron.right> (tertiary turned 90)
20 Gb/s ×2 = 40 Gb/s (green)  at port max ✓ (secondary)
bar fill green, 6 high, round: 0.10 to 100%, 0.85 to 100%
)");
  EXPECT_EQ(drawn("Quarry Slate NVMe Enclosure"), R"(
├ on accent 0.05 r6: <externaldrive> (accent 0.80)  Quarry Slate NVMe Enclosure  TB3 (accent) on accent 0.12 r4  <exclamationmark.triangle> (orange)
20 Gb/s (amber)  40 Gb/s port max (secondary)
bar fill amber, 6 high, round: 0.10 to 100%, 0.85 to 50%
)");
}

TEST_F(DrawnRows, OfBuses) {
  open("desk");
  EXPECT_EQ(drawn("USB 3.1 Bus"), R"(
└ on fill grey 0.06 r6: <arrow.triangle.branch> (secondary)  USB 3.1 Bus  10.4W rated (secondary)  <chevron.right> (tertiary turned 90)
)");
  closePanel();
  open("desktop");
  EXPECT_EQ(drawn("USB 3.0 Bus"), R"(
<arrow.triangle.branch> (secondary)  USB 3.0 Bus  3.0W rated (secondary)
)");
}

TEST_F(DrawnRows, OfHubs) {
  open("desk");
  EXPECT_EQ(drawn("USB Hub"), R"(
││├ on fill grey 0.06 r6: <arrow.triangle.branch> (accent 0.80)  USB Hub  5 Gb/s (speedTextAmber)  <arrow.up.circle> (orange)  2.6W total (secondary)  <chevron.right> (tertiary turned 90)
USB 3.2 Gen 1 (amber)  10 Gb/s port max (secondary)
bar fill amber, 6 high, round: 0.10 to 100%, 0.85 to 50%
<bolt.fill> (secondary)  0.5 W own draw (rated)  · (secondary)  4.5 W allocated (secondary)
bar fill blue, 6 high, round: 0.10 to 100%, 0.30 to 100%, 0.85 to 11%
)");
}

TEST_F(DrawnRows, OfDevices) {
  open("desk");
  EXPECT_EQ(drawn("Quarry Portable SSD"), R"(
││├ on card 0.50 r6: <externaldrive> (accent 0.80)  Quarry Portable SSD  10 Gb/s (green)
USB 3.2 Gen 2 (green)  at port max ✓ (secondary)
bar fill green, 6 high, round: 0.10 to 100%, 0.85 to 100%
<bolt.fill> (secondary)  4.5 W rated  · (secondary)  4.5 W allocated (secondary)  4.5 W port max (secondary)
bar fill blue, 6 high, round: 0.10 to 100%, 0.85 to 100%
<speedometer> (secondary)  Volume (secondary)  Fieldwork  <speedometer> (secondary)  <eject.circle> (secondary)
<speedometer> (secondary)  Volume (secondary)  Küste Sommer  <speedometer> (secondary)  <eject.circle> (secondary)
)");
  EXPECT_EQ(drawn("Larkspur Mouse"), R"(
│││└ on card 0.50 r6: <computermouse> (accent 0.80)  Larkspur Mouse  1.5 Mb/s (orange)  <arrow.up.circle> (orange)
USB 1.0 Low-Speed (orange)  10 Gb/s port max (secondary)
bar fill orange, 6 high, round: 0.10 to 100%, 0.85 to 2%
<bolt.fill> (secondary)  0.5 W rated  · (secondary)  2.5 W allocated (secondary)  4.5 W port max (secondary)
bar fill blue, 6 high, round: 0.10 to 100%, 0.30 to 56%, 0.85 to 11%
)");
}

/// A volume in all the states of its tools.
TEST_F(DrawnRows, OfVolumes) {
  answerWithDisk(*machine);
  openPanel({.fontScale = unwrappedScale});
  expandAll();
  const auto lastLine = [this] {
    std::string text = drawn("Quarry SSD");
    text.pop_back();
    return text.substr(text.rfind('\n') + 1);
  };
  const auto showTest = [this](const BenchmarkPhase& phase) {
    scanner->benchmarks.set({{"/Volumes/Data", phase}});
    settle();
  };
  const auto showEjection = [this](const EjectState& state) {
    scanner->ejectStates.set({{"/Volumes/Data", state}});
    settle();
  };
  const std::string volume = "<speedometer> (secondary)  Volume (secondary)  Data  ";
  EXPECT_EQ(lastLine(), volume + "<speedometer> (secondary)  <eject.circle> (secondary)");
  showTest({BenchmarkPhase::Running{"Writing…"}});
  EXPECT_EQ(lastLine(), volume + "arc (secondary)  Writing… (secondary)  "
                                 "<eject.circle> (secondary 0.40)");
  showTest({BenchmarkPhase::Done{412.4, 1021.7}});
  EXPECT_EQ(lastLine(), volume + "W 412 (blue)  R 1022 MB/s (green)  "
                                 "<arrow.clockwise> (secondary)  <eject.circle> (secondary)");
  showTest({BenchmarkPhase::Failed{"Not enough free space"}});
  EXPECT_EQ(lastLine(), volume + "Not enough free space (orange)  "
                                 "<arrow.clockwise> (secondary)  <eject.circle> (secondary)");
  showTest({BenchmarkPhase::Idle{}});
  showEjection({EjectState::Ejecting{}});
  EXPECT_EQ(lastLine(), volume + "<speedometer> (secondary)  arc (secondary)");
  showEjection({EjectState::Failed{"Volume busy"}});
  EXPECT_EQ(lastLine(), volume + "<speedometer> (secondary)  <exclamationmark.circle> (orange)");
}

/// A quarter of a turn, slow at both ends.
TEST_F(DrawnRows, RotateTheirChevronWhenTheyOpen) {
  useSample("bare");
  openPanel();
  const QQuickItem& chevron = drawnItem(*rowItem(0), "Chevron");
  EXPECT_EQ(chevron.rotation(), 0);
  context().panel()->toggle(0);
  settle();
  animations.advanceBy(turning / 5);
  EXPECT_NEAR(chevron.rotation(), 90 * 0.08, 0.5);
  animations.advanceBy(turning * 3 / 10);
  EXPECT_NEAR(chevron.rotation(), 45, 0.5);
  animations.advanceBy(turning / 2);
  EXPECT_EQ(chevron.rotation(), 90);
}

/// The rows of a card form one rounded rectangle.
TEST_F(DrawnRows, HaveTheBackgroundOfTheirCard) {
  useSample("bare");
  openPanel();
  const Drawing drawing(window(), context());
  const QRectF card = placeInWindow(*rowItem(0)).adjusted(12, 0, -12, -10);
  const auto colorAt = [&](double x, double y) {
    return drawing.colorName(drawing.picture().pixelColor(qFloor(x), qFloor(y)));
  };
  EXPECT_EQ(colorAt(card.left() + 3, card.center().y()), "card");
  EXPECT_EQ(colorAt(card.center().x(), card.top() + 3), "card");
  EXPECT_EQ(colorAt(card.center().x(), card.bottom() - 3), "card");
  const std::string window = colorAt(card.left() - 3, card.center().y());
  EXPECT_NE(window, "card");
  EXPECT_EQ(colorAt(card.left(), card.top()), window); // the corner is round
  EXPECT_EQ(colorAt(card.right() - 1, card.bottom() - 1), window);
  EXPECT_EQ(colorAt(card.center().x(), card.bottom() + 3), window); // between the cards
}

TEST_F(DrawnRows, OfAnAdapterShareOneBaseline) {
  for (const double scale : {1.0, 1.2, 1.3}) {
    useSample("road");
    openPanel({.fontScale = scale});
    expandAll();
    std::vector<double> baselines;
    for (const QQuickItem* text : drawnItems(*rowItem(indexOfRowNamed("70W USB-C")), "TextLine")) {
      baselines.push_back(text->mapToScene({0, text->baselineOffset()}).y());
    }
    for (const QQuickItem* text : drawnItems(*rowItem(indexOfRowNamed("70W USB-C")), "NameLabel")) {
      baselines.push_back(text->mapToScene({0, text->baselineOffset()}).y());
    }
    ASSERT_EQ(baselines.size(), 2U);
    EXPECT_NEAR(baselines[0], baselines[1], 0.01) << scale;
    closePanel();
  }
}

} // namespace
} // namespace tamberline
