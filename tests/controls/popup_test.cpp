#include "controls/popup.h"
#include "support/counted_signal.h"

#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

/// A panel of 400 by 300 points with an item on it, and a popup of 100 by 40.
class PopupTest : public testing::Test {
protected:
  PopupTest() {
    panel.setSize({400, 300});
    popup.setSize({100, 40});
    item->setSize({60, 20});
  }

  /// Where the popup is placed for an item at this position.
  QPointF placeBeside(QPointF itemPosition) {
    item->setPosition(itemPosition);
    popup.setTarget(item.get());
    popup.ensurePolished();
    return popup.position();
  }

  QQuickItem panel;
  std::unique_ptr<QQuickItem> item = std::make_unique<QQuickItem>(&panel);
  Popup popup{&panel};
};

TEST_F(PopupTest, IsSeenWhileItHasATarget) {
  EXPECT_FALSE(popup.isVisible());
  popup.setTarget(item.get());
  EXPECT_TRUE(popup.isVisible());
  EXPECT_EQ(popup.target(), item.get());
  popup.setTarget(nullptr);
  EXPECT_FALSE(popup.isVisible());
}

TEST_F(PopupTest, TellsOnceThatItHasAnotherTarget) {
  const CountedSignal changes(&popup, &Popup::targetChanged);
  popup.setTarget(item.get());
  popup.setTarget(item.get());
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(PopupTest, GoesWhenItsTargetIsGone) {
  popup.setTarget(item.get());
  item.reset();
  popup.setTarget(nullptr);
  EXPECT_FALSE(popup.isVisible());
}

TEST_F(PopupTest, StandsBelowItsTargetOrAboveInsideThePanel) {
  const struct {
    const char* description;
    QPointF item;
    QPointF popup;
  } rows[] = {
      {"below, centred", {170, 100}, {150, 128}},
      {"just fits below", {170, 224}, {150, 252}},
      {"one point too low", {170, 225}, {150, 177}},
      {"at the lower edge", {170, 280}, {150, 232}},
      {"at the left edge", {0, 100}, {8, 128}},
      {"at the right edge", {340, 100}, {292, 128}},
      {"beyond the left edge", {-500, 100}, {8, 128}},
      {"beyond the upper edge", {170, -500}, {150, -472}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(placeBeside(row.item), row.popup);
  }
}

TEST_F(PopupTest, StaysInsideAPanelThatIsTooSmallForIt) {
  panel.setSize({90, 50});
  EXPECT_EQ(placeBeside({10, 20}), QPointF(8, 8));
}

TEST_F(PopupTest, FindsATargetInsideOtherItems) {
  QQuickItem group(&panel);
  group.setPosition({100, 50});
  item->setParentItem(&group);
  EXPECT_EQ(placeBeside({70, 50}), QPointF(150, 128));
}

TEST_F(PopupTest, PointsToItsTarget) {
  placeBeside({170, 100});
  EXPECT_EQ(popup.arrowX(), 50);
  EXPECT_TRUE(popup.isBelow());
  placeBeside({170, 280});
  EXPECT_FALSE(popup.isBelow());
  placeBeside({0, 100});
  EXPECT_EQ(popup.arrowX(), 22);
  placeBeside({-500, 100});
  EXPECT_EQ(popup.arrowX(), 8) << "within its round corners";
  placeBeside({500, 100});
  EXPECT_EQ(popup.arrowX(), 92);
}

TEST_F(PopupTest, DoesNotCoverWhatItIsAbout) {
  QQuickItem bar(&panel);
  bar.setSize({300, 6});
  bar.setPosition({20, 150});
  popup.setBeyond(&bar);
  EXPECT_EQ(placeBeside({170, 100}), QPointF(150, 164));
  EXPECT_EQ(placeBeside({170, 170}), QPointF(150, 198)) << "the target is lower";
  bar.setY(260);
  EXPECT_EQ(placeBeside({170, 200}), QPointF(150, 152)) << "above the target";
}

TEST_F(PopupTest, StaysWhereItIsWithoutATarget) {
  popup.setPosition({1, 2});
  popup.ensurePolished();
  EXPECT_EQ(popup.position(), QPointF(1, 2));
}

} // namespace
} // namespace tamberline
