#include "controls/tooltips.h"
#include "support/counted_signal.h"
#include "support/hand_driven_queue.h"

#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

using namespace std::chrono_literals;

class TooltipsTest : public testing::Test {
protected:
  void TearDown() override { queue->end(); }

  void restOn(QQuickItem* target, const QString& text) {
    tooltips->setHovered(target, text, true);
    queue->advance(600ms);
  }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::unique_ptr<Tooltips> tooltips = std::make_unique<Tooltips>(queue);
  std::unique_ptr<QQuickItem> item = std::make_unique<QQuickItem>();
  QQuickItem other;
};

TEST_F(TooltipsTest, ComeWhenThePointerHasRested) {
  tooltips->setHovered(item.get(), "Quit", true);
  queue->advance(599ms);
  EXPECT_EQ(tooltips->target(), nullptr);
  queue->advance(1ms);
  EXPECT_EQ(tooltips->target(), item.get());
  EXPECT_EQ(tooltips->text(), "Quit");
}

TEST_F(TooltipsTest, GoWithThePointer) {
  restOn(item.get(), "Quit");
  tooltips->setHovered(item.get(), "Quit", false);
  EXPECT_EQ(tooltips->target(), nullptr);
}

TEST_F(TooltipsTest, DoNotComeWhenThePointerLeftEarlier) {
  tooltips->setHovered(item.get(), "Quit", true);
  queue->advance(300ms);
  tooltips->setHovered(item.get(), "Quit", false);
  EXPECT_EQ(queue->delayedCount(), 0U);
  queue->advance(1s);
  EXPECT_EQ(tooltips->target(), nullptr);
}

TEST_F(TooltipsTest, BelongToTheItemThatThePointerReachedLast) {
  restOn(item.get(), "Quit");
  tooltips->setHovered(&other, "Scan", true);
  EXPECT_EQ(tooltips->target(), nullptr);
  tooltips->setHovered(item.get(), "Quit", false);
  queue->advance(600ms);
  EXPECT_EQ(tooltips->target(), &other);
  EXPECT_EQ(tooltips->text(), "Scan");
}

TEST_F(TooltipsTest, SayNothingWithoutAText) {
  restOn(item.get(), "");
  EXPECT_EQ(tooltips->target(), nullptr);
  EXPECT_EQ(queue->delayedCount(), 0U);
}

TEST_F(TooltipsTest, GoWhenTheTextIsGone) {
  restOn(item.get(), "Quit");
  tooltips->setHovered(item.get(), "", true);
  EXPECT_EQ(tooltips->target(), nullptr);
}

TEST_F(TooltipsTest, GoWhenHiddenAndTellSo) {
  restOn(item.get(), "Quit");
  const CountedSignal changes(tooltips.get(), &Tooltips::changed);
  tooltips->hide();
  EXPECT_EQ(tooltips->target(), nullptr);
  EXPECT_EQ(changes.count(), 1);
  tooltips->hide();
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(TooltipsTest, DoNotComeAfterTheyWereHidden) {
  tooltips->setHovered(item.get(), "Quit", true);
  tooltips->hide();
  queue->advance(1s);
  EXPECT_EQ(tooltips->target(), nullptr);
}

TEST_F(TooltipsTest, DoNotComeForAnItemThatIsGone) {
  tooltips->setHovered(item.get(), "Quit", true);
  item.reset();
  const CountedSignal changes(tooltips.get(), &Tooltips::changed);
  queue->advance(1s);
  EXPECT_EQ(tooltips->target(), nullptr);
  EXPECT_EQ(changes.count(), 0);
}

TEST_F(TooltipsTest, GoWithTheirItemAndTellSo) {
  restOn(item.get(), "Quit");
  const CountedSignal changes(tooltips.get(), &Tooltips::changed);
  item.reset();
  EXPECT_EQ(tooltips->target(), nullptr);
  EXPECT_EQ(changes.count(), 1);
}

TEST_F(TooltipsTest, GoWhenTheirItemIsNoLongerSeen) {
  restOn(item.get(), "Quit");
  item->setVisible(false);
  EXPECT_EQ(tooltips->target(), nullptr);
}

TEST_F(TooltipsTest, ForgetAnItemThatTheyLeft) {
  restOn(item.get(), "Quit");
  restOn(&other, "Scan");
  item->setVisible(false);
  item.reset();
  EXPECT_EQ(tooltips->target(), &other);
}

TEST_F(TooltipsTest, MayEndWhileOneIsComing) {
  tooltips->setHovered(item.get(), "Quit", true);
  tooltips.reset();
  EXPECT_EQ(queue->delayedCount(), 0U);
}

} // namespace
} // namespace tamberline
