#include "controls/popover.h"
#include "support/counted_signal.h"

#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

class PopoverTest : public testing::Test {
protected:
  Popover popover{nullptr};
  CountedSignal changes{&popover, &Popover::changed};
  QQuickItem group;
  std::unique_ptr<QQuickItem> button = std::make_unique<QQuickItem>(&group);
  QQuickItem other;
};

TEST_F(PopoverTest, OpensForAButton) {
  EXPECT_EQ(popover.target(), nullptr);
  popover.toggle(button.get(), "Why?", "Because.");
  EXPECT_EQ(popover.target(), button.get());
  EXPECT_EQ(popover.title(), "Why?");
  EXPECT_EQ(popover.text(), "Because.");
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(PopoverTest, ClosesWithTheSameButton) {
  popover.toggle(button.get(), "Why?", "Because.");
  popover.toggle(button.get(), "Why?", "Because.");
  EXPECT_EQ(popover.target(), nullptr);
  EXPECT_EQ(changes.count(), 2);
}

TEST_F(PopoverTest, GoesOverToAnotherButton) {
  popover.toggle(button.get(), "Why?", "Because.");
  popover.toggle(&other, "What?", "This.");
  EXPECT_EQ(popover.target(), &other);
  EXPECT_EQ(popover.title(), "What?");
  EXPECT_EQ(popover.text(), "This.");
}

TEST_F(PopoverTest, ClosesOnDemand) {
  popover.toggle(button.get(), "Why?", "Because.");
  popover.close();
  EXPECT_EQ(popover.target(), nullptr);
  popover.close();
  EXPECT_EQ(changes.count(), 2);
}

TEST_F(PopoverTest, ClosesWhenItsButtonIsNoLongerSeen) {
  popover.toggle(button.get(), "Why?", "Because.");
  group.setVisible(false);
  EXPECT_EQ(popover.target(), nullptr);
  EXPECT_EQ(changes.count(), 2);
}

TEST_F(PopoverTest, ClosesWhenItsButtonIsGoneAndTellsSo) {
  popover.toggle(button.get(), "Why?", "Because.");
  button.reset();
  EXPECT_EQ(popover.target(), nullptr);
  EXPECT_EQ(changes.count(), 2);
}

TEST_F(PopoverTest, ForgetsAButtonThatItLeft) {
  popover.toggle(button.get(), "Why?", "Because.");
  popover.toggle(&other, "What?", "This.");
  const int before = changes.count();
  group.setVisible(false);
  button.reset();
  EXPECT_EQ(popover.target(), &other);
  EXPECT_EQ(changes.count(), before);
}

} // namespace
} // namespace tamberline
