#include "desktop/qt_tray.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using Calls = std::vector<std::string>;

/// The offscreen platform has no tray; the tests send the clicks that a tray would.
class QtTrayTest : public testing::Test {
protected:
  std::unique_ptr<QtTray> shownTray(QtTray::MenuOpener opener) {
    auto tray = std::make_unique<QtTray>(
        opener, [this](const QRect&) { return barTone; }, [this] { return heldKeys; });
    tray->show({.title = "Tamberline",
                .iconName = "tamberline",
                .icon =
                    [this](BarTone tone) {
                      tones.push_back(tone);
                      return QIcon();
                    },
                .openText = "Open",
                .quitText = "Quit"},
               {.clicked = [this](const TrayPlace&) { calls.emplace_back("clicked"); },
                .openChosen = [this](const TrayPlace&) { calls.emplace_back("open"); },
                .quitChosen = [this] { calls.emplace_back("quit"); }});
    return tray;
  }

  static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

  BarTone barTone = BarTone::unknown;
  Qt::KeyboardModifiers heldKeys;
  std::vector<BarTone> tones; // of each drawing
  Calls calls;
};

TEST_F(QtTrayTest, ReportsAClick) {
  for (const auto opener : {QtTray::MenuOpener::tray, QtTray::MenuOpener::program}) {
    calls.clear();
    const auto tray = shownTray(opener);
    emit tray->icon().activated(QSystemTrayIcon::Trigger);
    EXPECT_EQ(calls, Calls{"clicked"});
    EXPECT_EQ(openMenu(), nullptr);
  }
}

TEST_F(QtTrayTest, LeavesItsMenuToATrayThatOpensIt) {
  const auto tray = shownTray(QtTray::MenuOpener::tray);
  ASSERT_NE(tray->icon().contextMenu(), nullptr);
  EXPECT_EQ(tray->icon().contextMenu()->actions().size(), 2);
  emit tray->icon().activated(QSystemTrayIcon::Context);
  EXPECT_EQ(openMenu(), nullptr);
}

TEST_F(QtTrayTest, OpensItsMenuOnlyOnARightClickIfTheProgramOpensIt) {
  const auto tray = shownTray(QtTray::MenuOpener::program);
  EXPECT_EQ(tray->icon().contextMenu(), nullptr);
  emit tray->icon().activated(QSystemTrayIcon::Context);
  QMenu* const menu = openMenu();
  ASSERT_NE(menu, nullptr);
  for (QAction* action : menu->actions()) {
    action->trigger();
  }
  EXPECT_EQ(calls, (Calls{"open", "quit"}));
}

TEST_F(QtTrayTest, TakesADoubleClickForASecondClickIfTheProgramOpensTheMenu) {
  const auto tray = shownTray(QtTray::MenuOpener::program);
  emit tray->icon().activated(QSystemTrayIcon::Trigger);
  emit tray->icon().activated(QSystemTrayIcon::DoubleClick);
  EXPECT_EQ(calls, (Calls{"clicked", "clicked"}));
}

TEST_F(QtTrayTest, TakesADoubleClickForNothingWhereItFollowsTwoClicks) {
  const auto tray = shownTray(QtTray::MenuOpener::tray);
  emit tray->icon().activated(QSystemTrayIcon::DoubleClick);
  EXPECT_EQ(calls, Calls{});
}

TEST_F(QtTrayTest, IgnoresOtherButtons) {
  for (const auto opener : {QtTray::MenuOpener::tray, QtTray::MenuOpener::program}) {
    const auto tray = shownTray(opener);
    emit tray->icon().activated(QSystemTrayIcon::MiddleClick);
    emit tray->icon().activated(QSystemTrayIcon::Unknown);
    EXPECT_EQ(calls, Calls{});
    EXPECT_EQ(openMenu(), nullptr);
  }
}

TEST_F(QtTrayTest, OpensItsMenuOnACtrlClickIfTheProgramOpensIt) {
  heldKeys = Qt::MetaModifier; // Qt's name for the Ctrl key of a Mac
  for (const auto reason : {QSystemTrayIcon::Trigger, QSystemTrayIcon::DoubleClick}) {
    const auto tray = shownTray(QtTray::MenuOpener::program);
    emit tray->icon().activated(reason);
    EXPECT_NE(openMenu(), nullptr);
    EXPECT_EQ(calls, Calls{});
  }
  const auto tray = shownTray(QtTray::MenuOpener::tray);
  emit tray->icon().activated(QSystemTrayIcon::Trigger);
  EXPECT_EQ(openMenu(), nullptr);
  EXPECT_EQ(calls, Calls{"clicked"});
}

TEST_F(QtTrayTest, DrawsTheIconForTheBarThatIsAroundItNow) {
  const auto tray = shownTray(QtTray::MenuOpener::tray);
  EXPECT_EQ(tones, std::vector{BarTone::unknown});
  barTone = BarTone::dark;
  tray->redraw();
  EXPECT_EQ(tones, (std::vector{BarTone::unknown, BarTone::dark}));
}

TEST_F(QtTrayTest, RemovesTheIconFromTheTrayAndAddsItAgain) {
  const auto tray = shownTray(QtTray::MenuOpener::tray);
  EXPECT_TRUE(tray->icon().isVisible());
  tray->setShown(false);
  EXPECT_FALSE(tray->icon().isVisible());
  barTone = BarTone::light; // the icon is now on another bar
  tray->setShown(true);
  EXPECT_TRUE(tray->icon().isVisible());
  EXPECT_EQ(tones.back(), BarTone::light);
}

TEST_F(QtTrayTest, IsUnavailableWithoutATray) {
  EXPECT_FALSE(shownTray(QtTray::MenuOpener::tray)->isAvailable());
}

} // namespace
} // namespace tamberline
