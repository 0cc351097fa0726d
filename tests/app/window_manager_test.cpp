#include "app/window_manager.h"
#include "support/hand_driven_queue.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

/// A window at a position on the screen, measured downwards from the screen's top.
class FakeFrame final : public PanelFrame {
public:
  double contentHeight() const override { return height; }
  std::optional<double> visibleScreenHeight() const override { return screenHeight; }
  void setContentHeightKeepingTop(double newHeight) override {
    height = newHeight;
    ++changes;
  }

  double height = PanelSize::initialHeight;
  std::optional<double> screenHeight = 1080;
  int changes = 0;
};

class WindowManagerTest : public testing::Test {
protected:
  void setTargetHeight(double points) {
    manager->setTargetHeight(points);
    queue->runPosted();
  }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  FakeFrame frame;
  std::unique_ptr<WindowManager> manager = std::make_unique<WindowManager>(frame, queue);
};

TEST_F(WindowManagerTest, GivesTheWindowTheHeightThatFits) {
  struct Row {
    std::string description;
    double height;
    double target;
    std::optional<double> screenHeight;
    double expected;
  };
  const std::vector<Row> rows = {
      {"taller", 490, 700, 1080, 700},
      {"smaller", 490, 300, 1080, 300},
      {"as tall as the screen at most", 490, 2000, 1080, 1080},
      {"without a screen as tall as wanted", 490, 2000, std::nullopt, 2000},
      {"200 points at least", 490, 50, 1080, 200},
      {"200 points at least without a screen", 490, 0, std::nullopt, 200},
      {"the screen counts more than the minimum", 490, 50, 150, 150},
      {"half a point more is no difference", 490, 490.5, 1080, 490},
      {"a whole point more is no difference", 490, 491, 1080, 490},
      {"a whole point less is no difference", 490, 489, 1080, 490},
      {"one and a half points more", 490, 491.5, 1080, 491.5},
      {"one and a half points less", 490, 488.5, 1080, 488.5},
      {"what the screen allows counts for the difference", 1079.5, 2000, 1080, 1079.5},
      {"what the minimum demands counts for the difference", 200.5, 10, 1080, 200.5},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.description);
    frame.height = row.height;
    frame.screenHeight = row.screenHeight;
    frame.changes = 0;
    setTargetHeight(row.target);
    EXPECT_EQ(frame.height, row.expected);
    EXPECT_EQ(frame.changes, row.expected == row.height ? 0 : 1);
    EXPECT_EQ(manager->targetHeight(), row.target);
  }
}

TEST_F(WindowManagerTest, WaitsForTheNextEventLoopIteration) {
  manager->setTargetHeight(700);
  EXPECT_EQ(manager->targetHeight(), 700);
  EXPECT_EQ(frame.changes, 0);
  queue->runPosted();
  EXPECT_EQ(frame.height, 700);
}

TEST_F(WindowManagerTest, MovesTheWindowOnceForSeveralTargetsInOneIteration) {
  manager->setTargetHeight(700);
  manager->setTargetHeight(300);
  manager->setTargetHeight(650);
  queue->runPosted();
  EXPECT_EQ(frame.height, 650);
  EXPECT_EQ(frame.changes, 1);
}

TEST_F(WindowManagerTest, DoesNotMoveTheWindowIfTheLastTargetIsItsHeight) {
  manager->setTargetHeight(700);
  manager->setTargetHeight(490);
  queue->runPosted();
  EXPECT_EQ(frame.changes, 0);
}

TEST_F(WindowManagerTest, FollowsOneTargetAfterAnother) {
  setTargetHeight(700);
  setTargetHeight(300);
  EXPECT_EQ(frame.height, 300);
  EXPECT_EQ(frame.changes, 2);
}

TEST_F(WindowManagerTest, FitsTheSameTargetAgainWhenTheScreenHasChanged) {
  setTargetHeight(2000);
  frame.screenHeight = 1440;
  setTargetHeight(manager->targetHeight());
  EXPECT_EQ(frame.height, 1440);
}

TEST_F(WindowManagerTest, MayBeDestroyedWhileATargetIsPending) {
  manager->setTargetHeight(700);
  manager.reset();
  queue->runPosted();
  EXPECT_EQ(frame.changes, 0);
}

} // namespace
} // namespace tamberline
