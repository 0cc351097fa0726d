#include "controls/stack.h"

#include <gtest/gtest.h>

#include <array>

namespace tamberline {
namespace {

/// Three children of 10, 20 and 30 points, with gaps of 5 between them.
class StackTest : public testing::Test {
protected:
  StackTest() {
    stack.setProperty("spacing", 5);
    double size = 0;
    for (QQuickItem& child : children) {
      size += 10;
      child.setSize({size * 2, size});
      child.setParentItem(&stack);
    }
  }

  std::string places() {
    std::string text;
    for (const QQuickItem& child : children) {
      text += child.isVisible() ? QString::number(child.y()).toStdString() + " " : "";
    }
    return text + "of " + QString::number(stack.implicitHeight()).toStdString();
  }

  std::array<QQuickItem, 3> children; // destroyed after the stack
  Stack stack;
};

TEST_F(StackTest, PlacesItsChildrenOneBelowTheOther) {
  EXPECT_EQ(places(), "0 15 40 of 70");
  EXPECT_EQ(stack.implicitWidth(), 60);
}

TEST_F(StackTest, FollowsTheirHeightsAtOnce) {
  children[0].setHeight(11);
  EXPECT_EQ(places(), "0 16 41 of 71");
}

TEST_F(StackTest, GivesNoRoomToWhatIsHiddenOrEmpty) {
  children[1].setVisible(false);
  EXPECT_EQ(places(), "0 15 of 45");
  children[1].setVisible(true);
  children[0].setHeight(0);
  EXPECT_EQ(places(), "0 0 25 of 55");
}

TEST_F(StackTest, ForgetsAChildThatLeaves) {
  children[1].setParentItem(nullptr);
  EXPECT_EQ(stack.implicitHeight(), 45);
}

TEST_F(StackTest, KeepsRoomBelow) {
  stack.setProperty("bottomPadding", 4);
  EXPECT_EQ(places(), "0 15 40 of 74");
  stack.setProperty("spacing", 0);
  EXPECT_EQ(places(), "0 10 30 of 64");
}

TEST_F(StackTest, HasNoHeightWithoutChildren) {
  for (QQuickItem& child : children) {
    child.setVisible(false);
  }
  EXPECT_EQ(places(), "of 0");
}

} // namespace
} // namespace tamberline
