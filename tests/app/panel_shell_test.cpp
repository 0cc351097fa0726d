#include "app/panel_shell.h"
#include "support/fake_tools.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QScreen>
#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds longAfterTheClick{1000};

class PanelShellTest : public testing::Test {
protected:
  void SetUp() override {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    answerWithEmptyReports(*tools);
  }

  void TearDown() override {
    shell.reset();
    queue->end();
  }

  void makeShell(PanelWindow::Kind kind, const QRect& icon = {}) {
    shell = std::make_unique<PanelShell>(
        PanelContext::Outside{.scanner = scanner, .queue = queue},
        PanelShell::Placement{.kind = kind, .iconGeometry = [icon] { return icon; }});
  }

  /// Another window takes the keyboard, as after a click outside of the panel.
  void clickElsewhere() {
    other.show();
    other.requestActivate();
    QGuiApplication::processEvents();
  }

  /// Whether closing the panel is what ends the application. It only tells while its loop runs.
  bool closesTheLastWindow() {
    bool isTold = false;
    const auto connection = QObject::connect(qGuiApp, &QGuiApplication::lastWindowClosed, qGuiApp,
                                             [&isTold] { isTold = true; });
    QMetaObject::invokeMethod(
        qGuiApp,
        [this] {
          shell->close();
          QGuiApplication::exit();
        },
        Qt::QueuedConnection);
    QGuiApplication::exec();
    QObject::disconnect(connection);
    return isTold;
  }

  void openPanel() {
    shell->open();
    QGuiApplication::processEvents();
    queue->settle();
  }

  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<FakeTools> tools = std::make_shared<FakeTools>();
  std::shared_ptr<PortScanner> scanner =
      PortScanner::create({.acquisition = {.tools = tools, .queue = queue},
                           .events = std::make_shared<SimulatedEventSource>()});
  QWindow other;
  std::unique_ptr<PanelShell> shell;
};

TEST_F(PanelShellTest, MakesTheWindowWhenItIsFirstWantedAndKeepsIt) {
  makeShell(PanelWindow::Kind::attached);
  EXPECT_EQ(shell->window(), nullptr);
  EXPECT_FALSE(shell->isOpen());
  openPanel();
  const PanelWindow* const window = shell->window();
  EXPECT_TRUE(shell->isOpen());
  shell->close();
  EXPECT_FALSE(shell->isOpen());
  openPanel();
  EXPECT_EQ(shell->window(), window);
}

TEST_F(PanelShellTest, ScansWhenThePanelIsFirstSeenAndNotAgain) {
  makeShell(PanelWindow::Kind::attached);
  EXPECT_EQ(tools->runCount("SPUSBDataType.json"), 0U);
  openPanel();
  EXPECT_EQ(tools->runCount("SPUSBDataType.json"), 1U);
  shell->close();
  openPanel();
  EXPECT_EQ(tools->runCount("SPUSBDataType.json"), 1U);
}

TEST_F(PanelShellTest, ClickOnTheIconOpensAndAnotherCloses) {
  makeShell(PanelWindow::Kind::attached);
  shell->toggle();
  EXPECT_TRUE(shell->isOpen());
  shell->toggle();
  EXPECT_FALSE(shell->isOpen());
  shell->toggle();
  EXPECT_TRUE(shell->isOpen());
}

TEST_F(PanelShellTest, ClickOutsideClosesThePanelOfATrayIcon) {
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  ASSERT_TRUE(shell->window()->isActive());
  clickElsewhere();
  EXPECT_FALSE(shell->isOpen());
}

TEST_F(PanelShellTest, ClickOnTheIconThatTookTheKeyboardAwayDoesNotOpenAgain) {
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  clickElsewhere(); // the tray
  shell->toggle();
  EXPECT_FALSE(shell->isOpen());
  shell->toggle();
  EXPECT_TRUE(shell->isOpen());
}

TEST_F(PanelShellTest, ClickOnTheIconLongAfterOneOutsideOpens) {
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  clickElsewhere();
  queue->advance(longAfterTheClick);
  shell->toggle();
  EXPECT_TRUE(shell->isOpen());
}

TEST_F(PanelShellTest, OrdinaryWindowStaysWhenItIsLeft) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  clickElsewhere();
  EXPECT_TRUE(shell->isOpen());
}

TEST_F(PanelShellTest, OnlyTheOrdinaryWindowHasAFrame) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  EXPECT_FALSE(shell->window()->flags().testFlag(Qt::FramelessWindowHint));
  shell.reset();
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  EXPECT_TRUE(shell->window()->flags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(PanelShellTest, PanelOfATrayIconStandsBelowIt) {
  const QRect icon(300, 0, 24, 24);
  makeShell(PanelWindow::Kind::attached, icon);
  openPanel();
  EXPECT_GE(shell->window()->y(), icon.bottom());
  EXPECT_NEAR(shell->window()->geometry().center().x(), icon.center().x(), 1);
}

TEST_F(PanelShellTest, PanelAboveItsIconGrowsUpwards) {
  const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
  const QRect icon(300, available.bottom() - 24, 24, 24);
  makeShell(PanelWindow::Kind::attached, icon);
  openPanel();
  for (const int height : {300, 600, 250}) {
    shell->window()->setMinimumHeight(height);
    shell->window()->setMaximumHeight(height);
    shell->window()->resize(400, height);
    QGuiApplication::processEvents();
    EXPECT_EQ(shell->window()->geometry().height(), height);
    EXPECT_LE(shell->window()->geometry().bottom(), icon.top());
    EXPECT_GE(shell->window()->geometry().bottom(), icon.top() - 10);
  }
}

TEST_F(PanelShellTest, ClosingTheOrdinaryWindowEndsAProgramThatHasNoOther) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  EXPECT_TRUE(closesTheLastWindow());
  EXPECT_FALSE(shell->isOpen());
}

TEST_F(PanelShellTest, ClosingThePanelOfATrayIconEndsNothing) {
  makeShell(PanelWindow::Kind::attached);
  openPanel();
  EXPECT_FALSE(closesTheLastWindow());
  EXPECT_FALSE(shell->isOpen());
}

TEST_F(PanelShellTest, WindowIsAsHighAsItsContentAndCannotBeResized) {
  makeShell(PanelWindow::Kind::ordinary);
  openPanel();
  shell->window()->grabWindow(); // lays out
  queue->settle();
  const int wanted = std::max(200, qRound(shell->context().sizing()->windowTotalHeight()));
  EXPECT_EQ(shell->window()->size(), QSize(400, wanted));
  EXPECT_EQ(shell->window()->minimumSize(), QSize(400, wanted));
  EXPECT_EQ(shell->window()->maximumSize(), QSize(400, wanted));
}

} // namespace
} // namespace tamberline
