#include "panel/panel_fixture.h"
#include "panel/search_controller.h"
#include "support/counted_signal.h"

#include <gtest/gtest.h>

#include <string>

namespace tamberline {
namespace {

class AnswersControllerTest : public PanelFixture {
protected:
  /// The headlines of the strip, and the nodes to which they lead.
  std::string strip() const {
    std::string text;
    for (const QVariant& variant : answers->lines()) {
      const auto line = variant.value<AnswerLine>();
      text += line.headline + " -> " + line.nodeID + "\n";
    }
    return text + answers->more().toStdString();
  }

  RowAnswer answerAt(int row) const {
    const PanelListModel& rows = *panel->rows();
    return rows.data(rows.index(row), PanelListModel::AnswerRole).value<RowAnswer>();
  }
};

TEST_F(AnswersControllerTest, HasNoneForAMachineThatIsAllRight) {
  scanADesk();
  EXPECT_EQ(strip(), "");
  EXPECT_FALSE(answerAt(0).isShown);
}

TEST_F(AnswersControllerTest, ShowsWhatNeedsAttentionAndWhere) {
  answerWithAnUnauthorizedDock();
  scan();
  EXPECT_EQ(strip(), "Harbour Dock: not authorised -> /port1/tb:0xD0\n");
  EXPECT_TRUE(answerAt(0).isShown);
  EXPECT_TRUE(answerAt(0).isAboutContent);
  EXPECT_FALSE(answerAt(1).isShown);
  EXPECT_NE(sentenceAt(0).find("Needs attention: Harbour Dock: not authorised"), std::string::npos)
      << sentenceAt(0);
  panel->toggle(0);
  EXPECT_FALSE(answerAt(0).isShown) << "the card is open";
  EXPECT_TRUE(answerAt(1).isShown);
  const Answer& answer = answers->answers().all().at(0);
  EXPECT_NE(sentenceAt(1).find(answer.reason + " " + answer.advice), std::string::npos)
      << sentenceAt(1);
}

TEST_F(AnswersControllerTest, AnnouncesOnlyChanges) {
  answerWithAnUnauthorizedDock();
  scan();
  const CountedSignal strips(answers.get(), &AnswersController::stripChanged);
  const CountedSignal found(answers.get(), &AnswersController::answersChanged);
  recorder->clear();
  scan();
  EXPECT_EQ(strips.count(), 0);
  EXPECT_EQ(found.count(), 0);
  EXPECT_EQ(recorder->text(), "") << "no row is touched";
  scanADesk();
  EXPECT_EQ(strips.count(), 1);
  EXPECT_EQ(found.count(), 1);
  EXPECT_EQ(strip(), "");
  EXPECT_FALSE(answerAt(0).isShown);
}

TEST_F(AnswersControllerTest, LeadsToTheRowAsTheSearchDoes) {
  using namespace std::chrono_literals;
  answerWithAnUnauthorizedDock();
  scan();
  SearchController search(scanner, queue,
                          [this](const std::string& id) { return panel->rows()->indexOf(id); });
  search.jumpToNode(answers->lines().front().value<AnswerLine>().shownNodeID());
  queue->advance(30ms);
  EXPECT_EQ(scanner->highlightedNodeID.get(), "/port1/tb:0xD0");
  EXPECT_TRUE(scanner->expandedOverrideIDs.get().contains("/port1"));
}

} // namespace
} // namespace tamberline
