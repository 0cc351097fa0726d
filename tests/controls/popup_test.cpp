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
  EXPECT_EQ(placeBeside({70, 50}), QPointF(150, 124));
}

TEST_F(PopupTest, StaysWhereItIsWithoutATarget) {
  popup.setPosition({1, 2});
  popup.ensurePolished();
  EXPECT_EQ(popup.position(), QPointF(1, 2));
}

} // namespace
} // namespace tamberline
