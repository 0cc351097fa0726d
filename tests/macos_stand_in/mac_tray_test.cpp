#include "macos_stand_in/fake_mac.h"
#include "platform/macos/mac_tray.h"

#include <QApplication>
#include <QMenu>
#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

using Calls = std::vector<std::string>;

class MacTrayTest : public testing::Test {
protected:
  void SetUp() override { FakeMac::reset(); }

  void show() {
    tray->show({.title = "Tamberline",
                .iconName = "tamberline",
                .icon =
                    [this](BarTone tone) {
                      EXPECT_EQ(tone, BarTone::asPalette); // the system colours it
                      ++drawings;
                      return QIcon();
                    },
                .openText = "Open",
                .quitText = "Quit"},
               {.clicked = [this](const TrayPlace&) { calls.emplace_back("clicked"); },
                .openChosen = [this](const TrayPlace&) { calls.emplace_back("open"); },
                .quitChosen = [this] { calls.emplace_back("quit"); }});
  }

  FakeMac& mac = FakeMac::get();
  std::unique_ptr<MacTray> tray = std::make_unique<MacTray>();
  Calls calls;
  int drawings = 0;
};

TEST_F(MacTrayTest, ReportsAClick) {
  show();
  emit tray->icon().activated(QSystemTrayIcon::Trigger);
  EXPECT_EQ(calls, Calls{"clicked"});
}

TEST_F(MacTrayTest, DoesNotGiveTheMenuToTheMenuBar) {
  show();
  EXPECT_EQ(tray->icon().contextMenu(), nullptr);
  emit tray->icon().activated(QSystemTrayIcon::Context);
  auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  for (QAction* action : menu->actions()) {
    action->trigger();
  }
  EXPECT_EQ(calls, (Calls{"open", "quit"}));
}

TEST_F(MacTrayTest, OpensThePanelWhenTheProgramIsOpenedAgain) {
  show();
  QApplication::processEvents();
  ASSERT_NE(mac.reopen, nullptr);
  mac.reopen();
  mac.reopen();
  EXPECT_EQ(calls, (Calls{"open", "open"}));
}

TEST_F(MacTrayTest, HandlesReopeningOnlyAfterTheEventLoopHasStarted) {
  show();
  EXPECT_EQ(mac.calls, Calls{}); // at its start, the system sets its own handler
  QApplication::processEvents();
  EXPECT_EQ(mac.calls, Calls{"watch reopening"});
  tray.reset();
  EXPECT_EQ(mac.calls.back(), "ignore reopening");
}

TEST_F(MacTrayTest, DrawsItsIconAgainOnRequest) {
  show();
  EXPECT_EQ(drawings, 1);
  tray->redraw();
  EXPECT_EQ(drawings, 2);
}

TEST_F(MacTrayTest, IsAvailableIfQtHasATray) {
  EXPECT_EQ(tray->isAvailable(), QSystemTrayIcon::isSystemTrayAvailable());
}

TEST_F(MacTrayTest, CanBeDestroyedBeforeTheEventLoopStarts) {
  show();
  tray.reset();
  QApplication::processEvents();
  EXPECT_EQ(mac.calls, Calls{});
}

} // namespace
} // namespace tamberline
