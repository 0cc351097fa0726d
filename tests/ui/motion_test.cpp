// How rows come, go and make way.
#include "ui/machines.h"
#include "ui/panel_fixture.h"
#include "ui/visible_items.h"

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class PanelMotion : public PanelFixture {
protected:
  void open(bool isAllowed) {
    answerWithPorts(*machine, 3);
    openPanel();
    context().motion()->setAllowed(isAllowed);
    settle();
  }

  double topOf(int index) { return placeInWindow(*rowItem(index)).top(); }
};

TEST_F(PanelMotion, MovesRowsOutOfTheWayAndFadesNewOnesIn) {
  open(/*isAllowed=*/true);
  const double before = topOf(1);
  context().panel()->toggle(0);
  settle();
  EXPECT_EQ(rowItem(1)->opacity(), 0) << "the new row";
  EXPECT_NEAR(topOf(2), before, 1) << "the row that makes way";
  animations.advanceBy(80ms);
  settle();
  EXPECT_GT(rowItem(1)->opacity(), 0.5);
  EXPECT_LT(rowItem(1)->opacity(), 1);
  EXPECT_GT(topOf(2), before + 5);
  animations.advanceBy(100ms);
  settle();
  EXPECT_EQ(rowItem(1)->opacity(), 1);
  EXPECT_NEAR(topOf(2), topOf(1) + rowItem(1)->height(), 1);
}

TEST_F(PanelMotion, TakesKeysAndClicksMeanwhile) {
  open(/*isAllowed=*/true);
  context().panel()->toggle(0);
  settle();
  context().panel()->toggle(0);
  settle();
  context().panel()->toggle(0);
  settle();
  EXPECT_EQ(rows().rowCount(), 4);
  for (int frame = 0; frame < 6; ++frame) {
    animations.advanceBy(50ms);
    settle();
  }
  for (int index = 0; index < 4; ++index) {
    EXPECT_EQ(rowItem(index)->opacity(), 1) << index;
    if (index > 0) {
      EXPECT_NEAR(topOf(index), topOf(index - 1) + rowItem(index - 1)->height(), 1) << index;
    }
  }
}

TEST_F(PanelMotion, IsAbsentWhereTheUserDoesNotWantIt) {
  open(/*isAllowed=*/false);
  context().panel()->toggle(0);
  settle();
  EXPECT_EQ(rowItem(1)->opacity(), 1);
  EXPECT_NEAR(topOf(2), topOf(1) + rowItem(1)->height(), 1);
}

/// The window has its new height at once, so that no row is cut off while it moves.
TEST_F(PanelMotion, DoesNotDelayTheWindow) {
  open(/*isAllowed=*/true);
  const int before = window().height();
  context().panel()->toggle(0);
  settle();
  const int opened = window().height();
  EXPECT_GT(opened, before);
  animations.advanceBy(200ms);
  settle();
  EXPECT_EQ(window().height(), opened);
}

} // namespace
} // namespace tamberline
