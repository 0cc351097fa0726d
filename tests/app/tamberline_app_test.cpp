#include "app/tamberline_app.h"
#include "support/fake_tools.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <QApplication>
#include <QQuickWindow>
#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

/// The offscreen platform has no tray.
class TamberlineAppTest : public testing::Test {
protected:
  void SetUp() override { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }

  void TearDown() override {
    app.reset();
    queue->end();
  }

  static std::vector<QWindow*> visiblePanels() {
    std::vector<QWindow*> panels;
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
      if (window->isVisible() && window->title() == "Tamberline") {
        panels.push_back(window);
      }
    }
    return panels;
  }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<FakeTools> tools = std::make_shared<FakeTools>();
  std::unique_ptr<TamberlineApp> app = std::make_unique<TamberlineApp>(
      ScannerOutside{.acquisition = {.tools = tools, .queue = queue},
                     .events = std::make_shared<SimulatedEventSource>()},
      queue);
};

TEST_F(TamberlineAppTest, OpensAnOrdinaryWindowWhereThereIsNoTray) {
  EXPECT_TRUE(visiblePanels().empty());
  app->start();
  ASSERT_EQ(visiblePanels().size(), 1U);
  EXPECT_FALSE(visiblePanels().front()->flags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(TamberlineAppTest, EndsWithItsOnlyWindowWhereThereIsNoTray) {
  app->start();
  EXPECT_TRUE(QApplication::quitOnLastWindowClosed());
}

TEST_F(TamberlineAppTest, ShowsTheOneWindowToAnotherStart) {
  app->start();
  app->raise();
  EXPECT_EQ(visiblePanels().size(), 1U);
}

TEST_F(TamberlineAppTest, ScansWithToolsThatAreMissingAndGoesOn) {
  app->start();
  queue->settle();
  queue->advance(std::chrono::seconds(1));
  EXPECT_EQ(tools->runCount("SPThunderboltDataType.json"), 2U); // two attempts
  EXPECT_EQ(visiblePanels().size(), 1U);
}

} // namespace
} // namespace tamberline
