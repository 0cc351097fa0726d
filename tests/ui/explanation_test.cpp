#include "controls/popup.h"
#include "ui/drawn_items.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

namespace tamberline {
namespace {

using namespace std::chrono_literals;

constexpr const char* why = "Why isn't this at full speed?";

/// Everything that floats above the panel.
class PanelBubbles : public PanelFixture {
protected:
  void SetUp() override {
    answerWithDisk(*machine);
    openPanel();
    expandAll();
  }

  QQuickItem* popup() {
    for (QQuickItem* item : visibleItems(window())) {
      if (qobject_cast<Popup*>(item) != nullptr) {
        return item;
      }
    }
    return nullptr;
  }

  /// All texts in it, one per line.
  std::string bubbleText() {
    std::string text;
    for (const QQuickItem* item : visibleItems(window())) {
      if (popup() != nullptr && item->inherits("QQuickText") && popup()->isAncestorOf(item)) {
        text += (text.empty() ? "" : "\n") + item->property("text").toString().toStdString();
        EXPECT_EQ(item->property("textFormat").toInt(), Qt::PlainText);
      }
    }
    return text;
  }

  QPointF middleOf(QAccessible::Role role, const QString& name) {
    const QQuickItem* item = find(role, name).item();
    return item->mapToScene({item->width() / 2, item->height() / 2});
  }

  bool isInside(const QQuickItem& item) {
    return QRectF(QPointF(), window().size()).contains(placeInWindow(item));
  }
};

class PanelExplanation : public PanelBubbles {
protected:
  bool isOpen() { return popup() != nullptr; }
};

TEST_F(PanelExplanation, ClosesWhenTheListMovesBelowIt) {
  press(why);
  ASSERT_TRUE(isOpen());
  QQuickItem* const list = find(QAccessible::List, "Ports and devices").item();
  list->setProperty("contentY", list->property("contentY").toDouble() + 5);
  settle();
  EXPECT_FALSE(isOpen());
}

TEST_F(PanelExplanation, OpensAndClosesAtItsButton) {
  EXPECT_FALSE(isOpen());
  press(why);
  ASSERT_TRUE(isOpen());
  EXPECT_TRUE(isInside(*popup()));
  EXPECT_TRUE(isTextShown(why));
  EXPECT_TRUE(findAccessibleStarting(window(), QAccessible::StaticText, "Port supports"));
  press(why);
  EXPECT_FALSE(isOpen());
}

TEST_F(PanelExplanation, ClosesWithEscape) {
  press(why);
  typeKey(Qt::Key_Escape);
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(closeCount, 0);
}

TEST_F(PanelExplanation, ClosesOnAPressOutsideThatDoesNothingElse) {
  press(why);
  const int count = rows().rowCount();
  const QQuickItem* header = rowItem(0);
  click(header->mapToScene({header->width() / 2, 16}));
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(rows().rowCount(), count);
}

TEST_F(PanelExplanation, ClosesWhenItsRowDisappears) {
  press(why);
  collapseAll();
  EXPECT_FALSE(isOpen());
  expandAll();
  EXPECT_FALSE(isOpen());
}

TEST_F(PanelExplanation, ClosesWhenTheDeviceIsUnplugged) {
  press(why);
  answerWithPorts(*machine, 1);
  machine->answer(Question::usb, R"({"SPUSBDataType": []})");
  rescan();
  EXPECT_FALSE(isOpen());
}

TEST_F(PanelExplanation, ClosesWithThePanel) {
  press(why);
  shell->close();
  shell->open();
  settle();
  EXPECT_FALSE(isOpen());
}

class PanelTooltips : public PanelBubbles {};

TEST_F(PanelTooltips, AppearWhenThePointerRests) {
  movePointer(middleOf(QAccessible::Button, "Scan again"));
  advance(599ms);
  EXPECT_EQ(bubbleText(), "");
  advance(1ms);
  EXPECT_EQ(bubbleText(), "Scan again");
  EXPECT_TRUE(isInside(*popup()));
  movePointer({1, 1});
  EXPECT_EQ(bubbleText(), "");
}

TEST_F(PanelTooltips, ExplainATextOfTheList) {
  movePointer(middleOf(QAccessible::StaticText, "480 Mb/s"));
  advance(600ms);
  EXPECT_EQ(bubbleText(), "Negotiated USB link speed (green = at the port's max)");
}

TEST_F(PanelTooltips, CoverAllOfABadge) {
  closePanel();
  useSample("road");
  openPanel();
  QQuickItem& header = *rowItem(indexOfRowNamed("Thunderbolt Port 2"));
  const QQuickItem& charger = *drawnItems(header, "BadgeView").at(1);
  const QQuickItem& bolt = drawnItem(charger, "Symbol");
  for (const QPointF& place :
       {charger.mapToScene({2, 2}), charger.mapToScene({charger.width() - 2, charger.height() - 1}),
        bolt.mapToScene({bolt.width() / 2, bolt.height() / 2})}) {
    movePointer({200, 2});
    movePointer(place);
    advance(600ms);
    EXPECT_EQ(bubbleText(), "Power the charger is currently delivering to the Mac");
  }
  const QQuickItem& count = *find(QAccessible::StaticText, "1 item").item()->parentItem();
  movePointer(count.mapToScene({2, 1}));
  advance(600ms);
  EXPECT_EQ(bubbleText(), "Number of devices attached to this port");
}

TEST_F(PanelTooltips, DisappearOnAPress) {
  movePointer(middleOf(QAccessible::Button, "Expand all"));
  advance(600ms);
  EXPECT_EQ(bubbleText(), "Expand all");
  click(middleOf(QAccessible::Button, "Expand all"));
  EXPECT_EQ(bubbleText(), "");
}

TEST_F(PanelTooltips, DisappearOnAKeyPress) {
  movePointer(middleOf(QAccessible::Button, "Expand all"));
  advance(600ms);
  typeKey(Qt::Key_Tab);
  EXPECT_EQ(bubbleText(), "");
}

TEST_F(PanelTooltips, DisappearWithTheirItem) {
  movePointer(middleOf(QAccessible::StaticText, "480 Mb/s"));
  advance(600ms);
  ASSERT_NE(popup(), nullptr);
  answerWithPorts(*machine, 1);
  machine->answer(Question::usb, R"({"SPUSBDataType": []})");
  rescan();
  EXPECT_EQ(popup(), nullptr);
}

TEST_F(PanelTooltips, ShowTheMessageOfAFailedEjection) {
  scanner->ejectStates.set({{"/Volumes/Data", {EjectState::Failed{"A <b>file</b> is open"}}}});
  settle();
  movePointer(middleOf(QAccessible::Button, "A <b>file</b> is open"));
  advance(600ms);
  EXPECT_EQ(bubbleText(), "A <b>file</b> is open");
}

TEST_F(PanelTooltips, AreOnOneLineIfThereIsRoom) {
  movePointer(middleOf(QAccessible::Button, "Scan again"));
  advance(600ms);
  ASSERT_NE(popup(), nullptr);
  EXPECT_LT(popup()->height(), 40);
}

} // namespace
} // namespace tamberline
