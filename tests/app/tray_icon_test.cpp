#include "app/menu_bar_icon.h"
#include "app/tray_icon.h"
#include "support/without_icon_theme.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

using Calls = std::vector<std::string>;

/// The offscreen platform has no tray; what a tray would say of its clicks, the tests say.
class TrayIconTest : public testing::Test {
protected:
  TrayIcon trayIcon(TrayIcon::MenuOpener opener) {
    return {{.toggle = [this] { calls.emplace_back("toggle"); },
             .open = [this] { calls.emplace_back("open"); },
             .quit = [this] { calls.emplace_back("quit"); }},
            opener};
  }

  static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

  Calls calls;
};

TEST_F(TrayIconTest, TogglesThePanelOnAClick) {
  for (const auto opener : {TrayIcon::MenuOpener::tray, TrayIcon::MenuOpener::program}) {
    calls.clear();
    TrayIcon tray = trayIcon(opener);
    emit tray.icon().activated(QSystemTrayIcon::Trigger);
    EXPECT_EQ(calls, Calls{"toggle"});
    EXPECT_EQ(openMenu(), nullptr);
  }
}

TEST_F(TrayIconTest, LeavesItsMenuToATrayThatOpensIt) {
  TrayIcon tray = trayIcon(TrayIcon::MenuOpener::tray);
  ASSERT_NE(tray.icon().contextMenu(), nullptr);
  EXPECT_EQ(tray.icon().contextMenu()->actions().size(), 2);
  emit tray.icon().activated(QSystemTrayIcon::Context);
  EXPECT_EQ(openMenu(), nullptr);
}

TEST_F(TrayIconTest, OpensItsMenuOnARightClickWhereATrayWouldOpenItOnEveryClick) {
  TrayIcon tray = trayIcon(TrayIcon::MenuOpener::program);
  EXPECT_EQ(tray.icon().contextMenu(), nullptr);
  emit tray.icon().activated(QSystemTrayIcon::Context);
  QMenu* const menu = openMenu();
  ASSERT_NE(menu, nullptr);
  for (QAction* action : menu->actions()) {
    action->trigger();
  }
  EXPECT_EQ(calls, (Calls{"open", "quit"}));
}

TEST_F(TrayIconTest, KeepsToItsOneColorWhenItIsDrawnAnew) {
  TrayIcon tray = trayIcon(TrayIcon::MenuOpener::tray);
  EXPECT_TRUE(tray.icon().icon().isMask());
  tray.redraw();
  EXPECT_TRUE(tray.icon().icon().isMask());
}

/// How many pixels of the icon are to be seen.
int inkIn(const QIcon& icon) {
  const QImage image = icon.pixmap(QSize(36, 36)).toImage();
  int count = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      count += image.pixelColor(x, y).alpha() > 0 ? 1 : 0;
    }
  }
  return count;
}

TEST(MenuBarIcon, IsATemplateInThePixelsOfEveryScreen) {
  const QIcon icon = menuBarIcon();
  EXPECT_TRUE(icon.isMask());
  EXPECT_EQ(icon.availableSizes(), (QList<QSize>{{18, 18}, {36, 36}, {54, 54}}));
  EXPECT_GT(inkIn(icon), 0);
}

TEST(MenuBarIcon, IsAnEmptyTemplateWhenTheSymbolIsMissing) {
  const WithoutIconTheme scope;
  const QIcon icon = menuBarIcon();
  EXPECT_TRUE(icon.isMask());
  EXPECT_EQ(inkIn(icon), 0);
}

} // namespace
} // namespace tamberline
