#include "controls/popup.h"
#include "ui/drawn_items.h"
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

namespace tamberline {
namespace {

using namespace std::chrono_literals;

constexpr const char* headline = "Harbour Dock: not authorised";

class PanelAnswersShown : public PanelFixture {
protected:
  /// `count` ports, each with a dock that is not authorised.
  void answerWithUnauthorizedDocks(int count) {
    std::string ports;
    for (int index = 0; index < count; ++index) {
      const std::string number = std::to_string(index);
      ports += std::string(index == 0 ? "" : ",") + R"({"_name": "thunderboltusb4_bus_)" + number +
               R"(", "_items": [{"_name": "Harbour Dock", "switch_uid_key": "0xD)" + number +
               R"(", "tamberline_is_authorized": "FALSE"}]})";
    }
    answerWithEmptyReports(*machine);
    machine->answer(Question::thunderbolt, R"({"SPThunderboltDataType": [)" + ports + "]}");
  }

  std::string popupText() {
    std::string text;
    for (const QQuickItem* item : visibleItems(window())) {
      for (const QQuickItem* box = item; box != nullptr; box = box->parentItem()) {
        if (qobject_cast<const Popup*>(box) != nullptr && item->inherits("QQuickText")) {
          text += item->property("text").toString().toStdString() + "\n";
        }
      }
    }
    return text;
  }
};

TEST_F(PanelAnswersShown, TakeNoRoomIfThereAreNone) {
  answerWithPorts(*machine, 1);
  openPanel();
  EXPECT_FALSE(isShown(QAccessible::Grouping, "Needs attention"));
  const double chrome = context().sizing()->chromeHeight();
  answerWithUnauthorizedDocks(1);
  rescan();
  EXPECT_TRUE(isShown(QAccessible::Grouping, "Needs attention"));
  EXPECT_GT(context().sizing()->chromeHeight(), chrome);
  answerWithPorts(*machine, 1);
  rescan();
  EXPECT_EQ(context().sizing()->chromeHeight(), chrome);
}

TEST_F(PanelAnswersShown, StandAboveTheCards) {
  answerWithUnauthorizedDocks(1);
  openPanel();
  const QQuickItem* const line = find(QAccessible::Button, headline).item();
  const QQuickItem* const list = find(QAccessible::List, "Ports and devices").item();
  EXPECT_LT(placeInWindow(*line).bottom(), list->mapToScene({0, 0}).y());
}

TEST_F(PanelAnswersShown, OpenTheWayAndJumpToTheRow) {
  answerWithUnauthorizedDocks(2);
  openPanel();
  EXPECT_EQ(indexOfRowNamed("Harbour Dock"), -1);
  press(headline);
  advance(30ms);
  advance(150ms);
  advance(250ms);
  const int index = indexOfRowNamed("Harbour Dock");
  ASSERT_GE(index, 0);
  EXPECT_TRUE(isInView(*rowItem(index)));
  EXPECT_EQ(rows().rowAt(index)->pulse, Pulse::Throbbing);
}

TEST_F(PanelAnswersShown, ExplainThemselvesInAPopover) {
  answerWithUnauthorizedDocks(1);
  openPanel();
  press("Explain");
  const Answer& answer = context().answers()->answers().all().at(0);
  EXPECT_EQ(popupText(), answer.headline + "\n" + answer.reason + " " + answer.advice + "\n");
}

TEST_F(PanelAnswersShown, AreAtMostTwoAndACountOfTheOthers) {
  answerWithUnauthorizedDocks(4);
  openPanel();
  press("2 more problems");
  EXPECT_EQ(popupText(), "2 more problems\n" + std::string(headline) + "\n" + headline + "\n");
}

TEST_F(PanelAnswersShown, MarkTheClosedCardAndThenTheRow) {
  answerWithUnauthorizedDocks(1);
  openPanel();
  press("Needs attention");
  EXPECT_EQ(popupText(), "Needs attention\n" + std::string(headline) + "\n");
  typeKey(Qt::Key_Escape);
  expandAll();
  press(QString("Needs attention: ") + headline);
  const Answer& answer = context().answers()->answers().all().at(0);
  EXPECT_EQ(popupText(), answer.headline + "\n" + answer.reason + " " + answer.advice + "\n");
}

TEST_F(PanelAnswersShown, HaveTheirEvidenceBehindTheBadgesOfThePort) {
  useSample("slow");
  openPanel();
  press("40 Gb/s");
  EXPECT_EQ(popupText(), "Thunderbolt Port 1\nCable: 3 A, USB 2\n");
  typeKey(Qt::Key_Escape);
  EXPECT_EQ(popupText(), "");
}

TEST_F(PanelAnswersShown, LeaveBadgesAloneOfWhichNothingElseIsKnown) {
  useSample("studio");
  openPanel();
  EXPECT_FALSE(isShown(QAccessible::Button, "40 Gb/s"));
}

TEST_F(PanelAnswersShown, GoWhenTheirReasonGoes) {
  answerWithUnauthorizedDocks(1);
  openPanel();
  const double before = window().height();
  answerWithPorts(*machine, 1);
  rescan();
  EXPECT_FALSE(isShown(QAccessible::Button, headline));
  EXPECT_LT(window().height(), before);
}

} // namespace
} // namespace tamberline
