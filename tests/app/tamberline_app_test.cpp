#include "app/tamberline_app.h"
#include "controls/engine_objects.h"
#include "panel/panel_window.h"
#include "support/fake_desktop.h"
#include "support/fake_ejector.h"
#include "support/fake_machine.h"
#include "support/fake_volume_files.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <QApplication>
#include <QQuickWindow>
#include <QTimer>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace tamberline {
namespace {

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

  /// Closes the panel in a running event loop, and returns whether that ends the application.
  static bool endsWithItsWindow() {
    bool isEnded = false;
    const auto connection = QObject::connect(qApp, &QCoreApplication::aboutToQuit, qApp,
                                             [&isEnded] { isEnded = true; });
    QMetaObject::invokeMethod(
        qApp, [] { panel().close(); }, Qt::QueuedConnection);
    QTimer patience;
    QObject::connect(&patience, &QTimer::timeout, qApp, [] { QCoreApplication::exit(1); });
    patience.start(std::chrono::milliseconds(300));
    const int status = QApplication::exec();
    QObject::disconnect(connection);
    return isEnded && status == 0;
  }

  static PanelController& panel() {
    auto* view = qobject_cast<QQuickView*>(visiblePanels().at(0));
    return *engineObject<PanelController>(*view->engine());
  }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<FakeMachine> machine = std::make_shared<FakeMachine>();
  std::shared_ptr<FakeVolumeFiles> files = std::make_shared<FakeVolumeFiles>();
  ScannerServices outside() {
    return {.acquisition = {.machine = machine, .queue = queue},
            .events = std::make_shared<SimulatedEventSource>(),
            .benchmark = std::make_shared<Benchmark>(files)};
  }

  std::unique_ptr<TamberlineApp> app =
      std::make_unique<TamberlineApp>(outside(), queue, TamberlineApp::Desktop{});
};

TEST_F(TamberlineAppTest, OpensAnOrdinaryWindowWithoutATray) {
  EXPECT_TRUE(visiblePanels().empty());
  app->start();
  ASSERT_EQ(visiblePanels().size(), 1U);
  EXPECT_FALSE(visiblePanels().front()->flags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(TamberlineAppTest, EndsWithItsOnlyWindowWithoutATray) {
  app->start();
  EXPECT_TRUE(endsWithItsWindow());
}

TEST_F(TamberlineAppTest, RaisesTheWindowForAnotherStart) {
  app->start();
  app->raise();
  EXPECT_EQ(visiblePanels().size(), 1U);
}

TEST_F(TamberlineAppTest, KeepsRunningIfToolsAreMissing) {
  app->start();
  queue->settle();
  queue->advance(std::chrono::seconds(1));
  EXPECT_EQ(machine->askCount(Question::thunderbolt), 2U); // two attempts
  EXPECT_EQ(visiblePanels().size(), 1U);
}

TEST_F(TamberlineAppTest, RunsWithoutAWindowIfTheSessionStartedIt) {
  app->start(TamberlineApp::StartedBy::session);
  EXPECT_TRUE(visiblePanels().empty());
  app->raise(); // as when the user starts the program again
  EXPECT_EQ(visiblePanels().size(), 1U);
}

class AppWithTrayTest : public TamberlineAppTest {
protected:
  void SetUp() override {
    TamberlineAppTest::SetUp();
    makeApp(std::make_shared<FreeWindowPlaces>());
  }

  void makeApp(std::shared_ptr<WindowPlaces> places) {
    auto owned = std::make_unique<FakeTray>();
    tray = owned.get();
    app = std::make_unique<TamberlineApp>(
        outside(), queue, TamberlineApp::Desktop{.tray = std::move(owned), .places = places});
  }

  static bool isAttached() {
    return visiblePanels().at(0)->flags().testFlag(Qt::FramelessWindowHint);
  }

  FakeTray* tray = nullptr;
};

TEST_F(AppWithTrayTest, OpensThePanelWhenTheUserStartsIt) {
  app->start();
  EXPECT_TRUE(tray->isShown);
  ASSERT_EQ(visiblePanels().size(), 1U);
  EXPECT_TRUE(isAttached());
}

TEST_F(AppWithTrayTest, ShowsOnlyTheIconWhenTheSessionStartsIt) {
  app->start(TamberlineApp::StartedBy::session);
  EXPECT_TRUE(tray->isShown);
  EXPECT_TRUE(visiblePanels().empty());
}

TEST_F(AppWithTrayTest, NamesTheIconAndItsMenu) {
  app->start();
  EXPECT_EQ(tray->look.iconName, "org.tamberline.Tamberline-symbolic");
  EXPECT_EQ(tray->look.title, "Tamberline");
  EXPECT_EQ(tray->look.openText, "Open Tamberline");
  EXPECT_EQ(tray->look.quitText, "Quit");
  EXPECT_FALSE(tray->look.icon(BarTone::dark).isNull());
}

TEST_F(AppWithTrayTest, TogglesThePanelOnAClickAndOpensItFromTheMenu) {
  app->start(TamberlineApp::StartedBy::session);
  tray->events.clicked({});
  EXPECT_EQ(visiblePanels().size(), 1U);
  tray->events.clicked({});
  EXPECT_TRUE(visiblePanels().empty());
  tray->events.openChosen({});
  tray->events.openChosen({});
  EXPECT_EQ(visiblePanels().size(), 1U);
}

TEST_F(AppWithTrayTest, KeepsRunningWithoutAWindow) {
  app->start();
  EXPECT_FALSE(endsWithItsWindow());
}

TEST_F(AppWithTrayTest, KeepsRunningIfATrayStartedWhileTheWindowWasOpen) {
  tray->isThere = false;
  app->start();
  EXPECT_FALSE(isAttached());
  tray->isThere = true;
  EXPECT_FALSE(endsWithItsWindow());
  tray->events.clicked({});
  EXPECT_TRUE(isAttached());
}

TEST_F(AppWithTrayTest, OpensAWindowThatEndsItAfterTheTrayHasStopped) {
  app->start(TamberlineApp::StartedBy::session);
  tray->isThere = false;
  app->raise();
  EXPECT_FALSE(isAttached());
  EXPECT_TRUE(endsWithItsWindow());
}

TEST_F(AppWithTrayTest, OpensAnOrdinaryWindowIfTheDesktopPositionsWindows) {
  makeApp(std::make_shared<FakeWindowPlaces>(WindowPlaces::Decider::desktop));
  app->start();
  EXPECT_FALSE(isAttached());
  EXPECT_FALSE(endsWithItsWindow()); // the icon opens it again
}

TEST_F(AppWithTrayTest, RedrawsTheIconWhenColoursChange) {
  app->start();
  QPalette palette = QApplication::palette();
  palette.setColor(QPalette::Window, Qt::black);
  palette.setColor(QPalette::WindowText, Qt::white);
  QApplication::setPalette(palette);
  QCoreApplication::processEvents();
  EXPECT_GE(tray->redraws, 1);
  QApplication::setPalette(QPalette());
}

TEST_F(TamberlineAppTest, TestsVolumes) {
  app->start();
  EXPECT_TRUE(panel().canTestVolumes());
  panel().runBenchmark("/Volumes/Data");
  queue->settle();
  EXPECT_EQ(files->steps().at(1), "create /Volumes/Data/.tamberline_benchmark.tmp");
  EXPECT_TRUE(files->files().empty());
}

TEST_F(TamberlineAppTest, StopsTheTestOfAVolume) {
  app->start();
  panel().runBenchmark("/Volumes/Data");
  panel().stopBenchmark("/Volumes/Data");
  queue->settle();
  const std::vector<std::string> steps = files->steps();
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "write 8388608"), 0);
  EXPECT_EQ(steps.back(), "remove /Volumes/Data/.tamberline_benchmark.tmp");
}

TEST_F(TamberlineAppTest, EjectsVolumes) {
  const auto ejector = std::make_shared<FakeEjector>();
  ScannerServices withEjector = outside();
  withEjector.ejector = ejector;
  app = std::make_unique<TamberlineApp>(withEjector, queue, TamberlineApp::Desktop{});
  app->start();
  EXPECT_TRUE(panel().canEject());
  panel().eject("/Volumes/Data");
  queue->settle();
  EXPECT_EQ(ejector->mountPoints, std::vector<std::string>{"/Volumes/Data"});
}

TEST_F(TamberlineAppTest, OffersOnlyWhatTheSystemSupports) {
  app->start();
  EXPECT_FALSE(panel().canEject());
}

TEST_F(TamberlineAppTest, RemovesTheFilesOfTestsWhenItEnds) {
  app->start();
  panel().runBenchmark("/Volumes/Data");
  while (files->files().empty()) { // the first scan's work waits as well
    ASSERT_GT(queue->backgroundCount(), 0U);
    queue->finishOneBackgroundWork();
  }
  app.reset();
  EXPECT_TRUE(files->files().empty());
}

} // namespace
} // namespace tamberline
