#include "base/text.h"
#include "ui/drawn_items.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"

#include <algorithm>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

/// The time in which the list scrolls to a search result.
constexpr auto scrolling = 250ms;

class PanelSearch : public PanelFixture {
protected:
  void SetUp() override {
    useSample("desk");
    openPanel();
  }

  std::string fieldText() {
    return find(QAccessible::EditableText, "Search devices…")
        .item()
        ->property("text")
        .toString()
        .toStdString();
  }

  std::string pulseOf(int index) {
    return QVariant::fromValue(rows().rowAt(index)->pulse).toString().toStdString();
  }
};

TEST_F(PanelSearch, SuggestsDevicesWithTheTextInTheirNames) {
  EXPECT_FALSE(isShown(QAccessible::List, "Suggestions"));
  typeText("lumen 27 c");
  EXPECT_EQ(fieldText(), "lumen 27 c");
  EXPECT_TRUE(isShown(QAccessible::List, "Suggestions"));
  EXPECT_TRUE(findAccessibleStarting(window(), QAccessible::Button,
                                     "Lumen 27 Camera, Lumen Works, "
                                     "Thunderbolt Port 2"));
  EXPECT_FALSE(findAccessibleStarting(window(), QAccessible::Button, "Lumen 27 Speakers"));
}

TEST_F(PanelSearch, SaysThatNothingWasFound) {
  typeText("no such device");
  EXPECT_TRUE(isTextShown("No matching devices"));
  EXPECT_FALSE(isShown(QAccessible::List, "Suggestions"));
  typeKey(Qt::Key_Return);
  EXPECT_EQ(fieldText(), "no such device");
}

TEST_F(PanelSearch, IsClearedWithItsButton) {
  EXPECT_FALSE(isShown(QAccessible::Button, "Clear search"));
  typeText("lumen");
  press("Clear search");
  EXPECT_EQ(fieldText(), "");
  EXPECT_FALSE(isShown(QAccessible::List, "Suggestions"));
  EXPECT_FALSE(isShown(QAccessible::Button, "Clear search"));
}

TEST_F(PanelSearch, JumpsToTheFirstSuggestionAtReturn) {
  typeText("card reader");
  typeKey(Qt::Key_Return);
  EXPECT_EQ(fieldText(), "");
  const int index = indexOfRowNamed("Lumen SD Card Reader");
  ASSERT_GE(index, 0);
  EXPECT_EQ(pulseOf(index), "None");
  advance(30ms);
  EXPECT_EQ(pulseOf(index), "Throbbing");
  advance(150ms);
  advance(scrolling);
  ASSERT_NE(rowItem(index), nullptr)
      << index << " of " << rows().rowCount() << " at " << listPosition();
  EXPECT_TRUE(isInView(*rowItem(index)));
}

TEST_F(PanelSearch, FocusesTheFoundRow) {
  typeText("card reader");
  typeKey(Qt::Key_Return);
  advance(30ms);
  advance(150ms);
  const int index = indexOfRowNamed("Lumen SD Card Reader");
  advance(scrolling);
  ASSERT_NE(rowItem(index), nullptr)
      << index << " of " << rows().rowCount() << " at " << listPosition();
  EXPECT_TRUE(rowItem(index)->hasActiveFocus());
  typeText("x"); // typing starts another search
  EXPECT_EQ(fieldText(), "x");
}

TEST_F(PanelSearch, JumpsToAnyRowFromTheOppositeEnd) {
  expandAll();
  ScrollProxy& proxy = *context().search()->scrollProxy();
  const int last = rows().rowCount() - 1;
  for (int row = 0; row <= last; ++row) {
    proxy.centre(row < last / 2 ? last : 0);
    advance(scrolling);
    proxy.centre(row);
    advance(scrolling);
    ASSERT_NE(rowItem(row), nullptr) << row;
    EXPECT_TRUE(isInView(*rowItem(row))) << row;
  }
}

/// The highlight on the row that a jump led to, starting with all cards closed.
class PanelPulse : public PanelFixture {
protected:
  void jumpTo(const QString& name) {
    typeText(name);
    typeKey(Qt::Key_Return);
    queue->advance(30ms);
    settle();
    index = indexOfRowNamed(name);
  }

  QQuickItem& overlay() { return drawnItem(*rowItem(index), "PulseOverlay"); }

  /// Its opacity at each of the next quarters of a second.
  std::string opacities(int quarters) {
    std::string text;
    for (int quarter = 0; quarter < quarters; ++quarter) {
      advance(250ms);
      text += (text.empty() ? "" : " ") + fixedText(drawnOpacity(overlay()), 2);
    }
    return text;
  }

  /// During the next second.
  double greatestOpacity() {
    double greatest = 0;
    for (int step = 0; step < 20; ++step) {
      advance(50ms);
      greatest = std::max(greatest, drawnOpacity(overlay()));
    }
    return greatest;
  }

  int index = -1;
};

TEST_F(PanelPulse, ThrobsOverAnExistingRow) {
  useSample("desk");
  openPanel();
  jumpTo("Lumen 27 Speakers");
  EXPECT_EQ(drawnOpacity(overlay()), 0);
  EXPECT_EQ(opacities(8), "0.20 0.40 0.20 0.00 0.20 0.40 0.20 0.00");
}

TEST_F(PanelPulse, ThrobsOverARowCreatedByScrolling) {
  std::vector<ReportedDevice> devices;
  for (int number = 100; number < 160; ++number) {
    devices.push_back({"Device " + std::to_string(number)});
  }
  answerWithDevices(*machine, devices);
  openPanel();
  jumpTo("Device 159");
  ASSERT_EQ(rowItem(index), nullptr);
  advance(150ms);
  advance(scrolling);
  ASSERT_NE(rowItem(index), nullptr);
  EXPECT_GT(greatestOpacity(), 0.38);
}

TEST_F(PanelPulse, StartsSlowly) {
  useSample("desk");
  openPanel();
  jumpTo("Lumen 27 Speakers");
  advance(125ms);
  EXPECT_NEAR(drawnOpacity(overlay()), 0.05, 0.001);
}

TEST_F(PanelPulse, FadesFromItsCurrentOpacity) {
  useSample("desk");
  openPanel();
  jumpTo("Lumen 27 Speakers");
  EXPECT_EQ(opacities(2), "0.20 0.40");
  queue->advance(4500ms); // the frame is late
  settle();
  EXPECT_EQ(fixedText(drawnOpacity(overlay()), 2), "0.40");
  animations.advanceBy(200ms);
  EXPECT_EQ(fixedText(drawnOpacity(overlay()), 2), "0.10"); // fast at first
  queue->advance(400ms);                                    // the highlight ends before the frame
  settle();
  animations.advanceBy(200ms);
  EXPECT_EQ(drawnOpacity(overlay()), 0);
}

TEST_F(PanelPulse, CoversTheRow) {
  useSample("desk");
  openPanel();
  jumpTo("Lumen 27 Speakers");
  advance(500ms);
  EXPECT_EQ(overlay().property("color").value<QColor>(),
            context().theme()->property("accent").value<QColor>());
  EXPECT_GT(overlay().width(), 300);
  EXPECT_GT(overlay().height(), rowItem(index)->height() / 2);
}

TEST_F(PanelSearch, ThrobsOverTheRowForFiveSecondsAndFades) {
  typeText("card reader");
  typeKey(Qt::Key_Return);
  advance(30ms);
  const int index = indexOfRowNamed("Lumen SD Card Reader");
  advance(4999ms);
  EXPECT_EQ(pulseOf(index), "Throbbing");
  advance(1ms);
  EXPECT_EQ(pulseOf(index), "Fading");
  advance(400ms);
  EXPECT_EQ(pulseOf(index), "None");
  EXPECT_FALSE(scanner->highlightedNodeID.get());
}

TEST_F(PanelSearch, JumpsToTheSuggestionThatIsPressed) {
  typeText("lumen");
  press("Lumen 27 Speakers");
  advance(180ms);
  const int index = indexOfRowNamed("Lumen 27 Speakers");
  ASSERT_GE(index, 0);
  EXPECT_EQ(pulseOf(index), "Throbbing");
  EXPECT_FALSE(isShown(QAccessible::List, "Suggestions"));
}

TEST_F(PanelSearch, JumpsToTheSuggestionThatIsClicked) {
  typeText("lumen");
  const auto row = findAccessibleStarting(window(), QAccessible::Button, "Lumen 27 Speakers");
  ASSERT_TRUE(row);
  click(row->item()->mapToScene({20, 8}));
  advance(180ms);
  EXPECT_EQ(pulseOf(indexOfRowNamed("Lumen 27 Speakers")), "Throbbing");
}

} // namespace
} // namespace tamberline
