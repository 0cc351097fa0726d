#include "controls/bubble.h"
#include "support/counted_signal.h"

#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

/// A panel of 400 by 300 points with an item on it, and a bubble of 100 by 40.
class BubbleTest : public testing::Test {
protected:
  BubbleTest() {
    panel.setSize({400, 300});
    bubble.setSize({100, 40});
    item->setSize({60, 20});
  }

  /// Where the bubble is placed for an item at this position.
  QPointF placeBeside(QPointF itemPosition) {
    item->setPosition(itemPosition);
    bubble.setTarget(item.get());
    bubble.ensurePolished();
    return bubble.position();
  }

  QQuickItem panel;
  std::unique_ptr<QQuickItem> item = std::make_unique<QQuickItem>(&panel);
  Bubble bubble{&panel};
};

TEST_F(BubbleTest, IsSeenWhileItHasATarget) {
  EXPECT_FALSE(bubble.isVisible());
  bubble.setTarget(item.get());
  EXPECT_TRUE(bubble.isVisible());
  EXPECT_EQ(bubble.target(), item.get());
  bubble.setTarget(nullptr);
  EXPECT_FALSE(bubble.isVisible());
}

TEST_F(BubbleTest, TellsOnceThatItHasAnotherTarget) {
  const CountedSignal changes(&bubble, &Bubble::targetChanged);
  bubble.setTarget(item.get());
  bubble.setTarget(item.get());
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(BubbleTest, GoesWhenItsTargetIsGone) {
  bubble.setTarget(item.get());
  item.reset();
  bubble.setTarget(nullptr);
  EXPECT_FALSE(bubble.isVisible());
}

TEST_F(BubbleTest, StandsBelowItsTargetOrAboveInsideThePanel) {
  const struct {
    const char* description;
    QPointF item;
    QPointF bubble;
  } rows[] = {
      {"below, centred", {170, 100}, {150, 124}},
      {"just fits below", {170, 228}, {150, 252}},
      {"one point too low", {170, 229}, {150, 185}},
      {"at the lower edge", {170, 280}, {150, 236}},
      {"at the left edge", {0, 100}, {8, 124}},
      {"at the right edge", {340, 100}, {292, 124}},
      {"beyond the left edge", {-500, 100}, {8, 124}},
      {"beyond the upper edge", {170, -500}, {150, -476}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(placeBeside(row.item), row.bubble);
  }
}

TEST_F(BubbleTest, StaysInsideAPanelThatIsTooSmallForIt) {
  panel.setSize({90, 50});
  EXPECT_EQ(placeBeside({10, 20}), QPointF(8, 8));
}

TEST_F(BubbleTest, FindsATargetInsideOtherItems) {
  QQuickItem group(&panel);
  group.setPosition({100, 50});
  item->setParentItem(&group);
  EXPECT_EQ(placeBeside({70, 50}), QPointF(150, 124));
}

TEST_F(BubbleTest, StaysWhereItIsWithoutATarget) {
  bubble.setPosition({1, 2});
  bubble.ensurePolished();
  EXPECT_EQ(bubble.position(), QPointF(1, 2));
}

} // namespace
} // namespace tamberline
