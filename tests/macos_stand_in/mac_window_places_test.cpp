#include "app/panel_shell.h"
#include "macos_stand_in/fake_mac.h"
#include "platform/macos/mac_window_places.h"
#include "support/fake_machine.h"
#include "support/hand_driven_queue.h"
#include "support/simulated_event_source.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

using Calls = std::vector<std::string>;

/// The panel as the program uses it on a Mac.
class PanelOnAMac : public testing::Test {
protected:
  void SetUp() override {
    FakeMac::reset();
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    answerWithEmptyReports(*machine);
    makeShell(PanelWindow::Kind::attached);
  }

  void TearDown() override {
    shell.reset();
    queue->end();
  }

  void makeShell(PanelWindow::Kind kind) {
    shell = std::make_unique<PanelShell>(
        PanelContext::Outside{.scanner = scanner, .queue = queue},
        PanelShell::Placement{.kind = [kind] { return kind; },
                              .places = std::make_shared<MacWindowPlaces>()});
  }

  void open() {
    shell->open();
    QGuiApplication::processEvents();
    queue->settle();
  }

  void close() {
    shell->close();
    QGuiApplication::processEvents();
  }

  FakeMac& mac = FakeMac::get();
  std::shared_ptr<HandDrivenQueue> queue = std::make_shared<HandDrivenQueue>();
  std::shared_ptr<FakeMachine> machine = std::make_shared<FakeMachine>();
  std::shared_ptr<PortScanner> scanner =
      PortScanner::create({.acquisition = {.machine = machine, .queue = queue},
                           .events = std::make_shared<SimulatedEventSource>()});
  std::unique_ptr<PanelShell> shell;
};

TEST_F(PanelOnAMac, OpensWithKeyboardFocusWhileAnotherApplicationIsActive) {
  open();
  EXPECT_EQ(mac.calls, (Calls{"prepare panel", "watch clicks", "order panel front"}));
  EXPECT_TRUE(shell->window()->isActive());
}

TEST_F(PanelOnAMac, IsPreparedForEachOpening) {
  open();
  close();
  mac.calls.clear();
  open();
  EXPECT_EQ(mac.calls, (Calls{"prepare panel", "watch clicks", "order panel front"}));
}

TEST_F(PanelOnAMac, ReturnsKeyboardFocusAfterItIsClosed) {
  open();
  mac.calls.clear();
  shell->close();
  EXPECT_EQ(mac.calls, Calls{"ignore clicks"}); // the system still shows it
  QGuiApplication::processEvents();
  EXPECT_EQ(mac.calls, (Calls{"ignore clicks", "hide application"}));
}

TEST_F(PanelOnAMac, KeepsKeyboardFocusInAnotherWindowOfTheProgram) {
  open();
  QWindow manual;
  manual.show();
  mac.calls.clear();
  close();
  EXPECT_EQ(mac.calls, Calls{"ignore clicks"});
}

TEST_F(PanelOnAMac, KeepsKeyboardFocusIfItOpensAgainAtOnce) {
  open();
  mac.calls.clear();
  shell->close();
  open();
  EXPECT_EQ(mac.calls,
            (Calls{"ignore clicks", "prepare panel", "watch clicks", "order panel front"}));
}

TEST_F(PanelOnAMac, ClosesOnAClickInAnotherApplication) {
  open();
  ASSERT_NE(mac.clickElsewhere, nullptr);
  mac.clickElsewhere();
  EXPECT_FALSE(shell->isOpen());
  EXPECT_EQ(mac.clickElsewhere, nullptr);
}

TEST_F(PanelOnAMac, IsOnlyBroughtToTheFrontIfItIsOpen) {
  open();
  mac.calls.clear();
  open();
  EXPECT_EQ(mac.calls, Calls{"order panel front"});
}

TEST_F(PanelOnAMac, IsAWindowLikeAnyOtherWithoutAnIcon) {
  makeShell(PanelWindow::Kind::ordinary);
  open();
  EXPECT_TRUE(shell->window()->isActive());
  close();
  EXPECT_EQ(mac.calls, Calls{});
}

TEST(MacWindowPlaces, HoldNoWindowInACorner) {
  QWindow window;
  EXPECT_EQ(MacWindowPlaces().holdInCorner(window, Qt::TopRightCorner, {}), nullptr);
}

} // namespace
} // namespace tamberline
