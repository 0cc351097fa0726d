#include "app/tamberline_app.h"
#include "panel/panel_window.h"
#include "support/fake_tools.h"
#include "support/fake_volume_files.h"
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

  static PanelController& panel() {
    auto* view = qobject_cast<QQuickView*>(visiblePanels().at(0));
    return *PanelContext::of(*view->engine()).panel();
  }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<FakeTools> tools = std::make_shared<FakeTools>();
  std::shared_ptr<FakeVolumeFiles> files = std::make_shared<FakeVolumeFiles>();
  std::unique_ptr<TamberlineApp> app = std::make_unique<TamberlineApp>(
      ScannerOutside{.acquisition = {.tools = tools, .queue = queue},
                     .events = std::make_shared<SimulatedEventSource>(),
                     .benchmark = std::make_shared<Benchmark>(files)},
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

TEST_F(TamberlineAppTest, TestsVolumes) {
  app->start();
  EXPECT_TRUE(panel().canTestVolumes());
  panel().runBenchmark("/Volumes/Data");
  queue->settle();
  EXPECT_EQ(files->steps().at(1), "create /Volumes/Data/.tamberline_benchmark.tmp");
  EXPECT_TRUE(files->files().empty());
}

TEST_F(TamberlineAppTest, OffersOnlyWhatTheSystemCanDo) {
  app->start();
  EXPECT_FALSE(panel().canEject());
}

TEST_F(TamberlineAppTest, RemovesTheFilesOfTestsWhenItEnds) {
  app->start();
  panel().runBenchmark("/Volumes/Data");
  while (files->files().empty()) { // the first scan's work waits too
    ASSERT_GT(queue->backgroundCount(), 0U);
    queue->finishOneBackgroundWork();
  }
  app.reset();
  EXPECT_TRUE(files->files().empty());
}

} // namespace
} // namespace tamberline
