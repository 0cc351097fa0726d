#include "platform/linux/desktop/session_tray.h"
#include "platform/linux/desktop/status_notifier_tray.h"
#include "platform/private_bus.h"
#include "support/event_loop.h"
#include "support/temporary_folder.h"

#include <QDBusArgument>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {
namespace {

using Calls = std::vector<std::string>;

std::string text(const char* what, const std::optional<QPoint>& place) {
  return what + (place ? " at " + std::to_string(place->x()) + ", " + std::to_string(place->y())
                       : std::string(" somewhere"));
}

class StatusNotifierTrayTest : public testing::Test {
protected:
  void makeTray() {
    tray = std::make_unique<StatusNotifierTray>(StatusNotifierTray::Hooks{
        .availabilityChanged = [this] { calls.emplace_back("changed"); },
        .menuWanted =
            [this](std::optional<QPoint> place) { calls.push_back(text("menu", place)); }});
  }

  void showTray(const QString& iconName = "no-theme-has-this") {
    QPixmap pixmap(2, 1);
    pixmap.fill(QColor(0x11, 0x22, 0x33, 0xff));
    tray->show(
        {.title = "Title",
         .iconName = iconName,
         .icon = [pixmap](BarTone) { return QIcon(pixmap); },
         .openText = "Open_it",
         .quitText = "Quit"},
        {.clicked = [this](const TrayPlace& p) { calls.push_back(text("clicked", p.click)); },
         .openChosen = [this](const TrayPlace&) { calls.emplace_back("open"); },
         .quitChosen = [this] { calls.emplace_back("quit"); }});
  }

  void makeShownTray() {
    makeTray();
    showTray();
    ASSERT_TRUE(runEventsUntil([this] { return desktop->items().size() == 1; }));
  }

  bool becomesAvailable(bool isAvailable) {
    return runEventsUntil([this, isAvailable] { return tray->isAvailable() == isAvailable; });
  }

  TemporaryFolder folder;
  PrivateBus bus{folder};
  std::unique_ptr<SessionTray> desktop = std::make_unique<SessionTray>();
  std::unique_ptr<StatusNotifierTray> tray;
  Calls calls;
};

TEST_F(StatusNotifierTrayTest, IsAvailableOnlyIfAHostShowsItsItems) {
  desktop.reset();
  makeTray();
  EXPECT_FALSE(tray->isAvailable());
  desktop = std::make_unique<SessionTray>(false);
  makeTray();
  EXPECT_FALSE(tray->isAvailable());
}

TEST_F(StatusNotifierTrayTest, FindsATrayThatAnswersLate) {
  makeTray(); // the tray of the test answers when the event loop runs
  EXPECT_TRUE(becomesAvailable(true));
  EXPECT_EQ(calls, Calls{"changed"});
}

TEST_F(StatusNotifierTrayTest, AsksToBeShownOnce) {
  makeShownTray();
  EXPECT_EQ(desktop->items().size(), 1);
}

TEST_F(StatusNotifierTrayTest, FollowsATrayThatStartsStopsAndRestarts) {
  desktop.reset();
  makeTray();
  showTray();
  for (int round = 0; round < 2; ++round) {
    desktop = std::make_unique<SessionTray>();
    EXPECT_TRUE(becomesAvailable(true));
    EXPECT_TRUE(runEventsUntil([this] { return desktop->items().size() == 1; }));
    desktop.reset();
    EXPECT_TRUE(becomesAvailable(false));
  }
  EXPECT_EQ(calls, (Calls{"changed", "changed", "changed", "changed"}));
}

TEST_F(StatusNotifierTrayTest, FollowsTheHostOfAWatcherThatStays) {
  desktop->setHost(false);
  makeTray();
  desktop->setHost(true);
  EXPECT_TRUE(becomesAvailable(true));
  desktop->setHost(false);
  EXPECT_TRUE(becomesAvailable(false));
}

TEST_F(StatusNotifierTrayTest, HasTheItemsProperties) {
  makeShownTray();
  EXPECT_EQ(desktop->property("Title"), "Title");
  EXPECT_EQ(desktop->property("Id"), "tamberline");
  EXPECT_EQ(desktop->property("Status"), "Active");
  EXPECT_EQ(desktop->property("Category"), "Hardware");
  EXPECT_EQ(desktop->property("ItemIsMenu"), false);
  EXPECT_EQ(desktop->property("Menu").value<QDBusObjectPath>().path(), "/TrayMenu");
  EXPECT_EQ(qdbus_cast<TrayToolTip>(desktop->property("ToolTip")).title, "Title");
}

TEST_F(StatusNotifierTrayTest, ProvidesItsDrawingIfNoThemeHasItsIcon) {
  makeShownTray();
  EXPECT_EQ(desktop->property("IconName"), "");
  const auto pixmaps = qdbus_cast<TrayPixmaps>(desktop->property("IconPixmap"));
  ASSERT_EQ(pixmaps.size(), 1);
  EXPECT_EQ(pixmaps[0].width, 2);
  EXPECT_EQ(pixmaps[0].height, 1);
  EXPECT_EQ(pixmaps[0].argb.toHex(), "ff112233ff112233");
}

TEST_F(StatusNotifierTrayTest, NamesTheIconThatIsInstalled) {
  std::filesystem::create_directories(folder.path() / "icons/hicolor/symbolic/apps");
  folder.save("icons/hicolor/symbolic/apps/installed-symbolic.svg", "<svg/>");
  const QByteArray former = qgetenv("XDG_DATA_HOME");
  qputenv("XDG_DATA_HOME", folder.path().c_str());
  makeTray();
  showTray("installed-symbolic");
  qputenv("XDG_DATA_HOME", former);
  ASSERT_TRUE(runEventsUntil([this] { return desktop->items().size() == 1; }));
  EXPECT_EQ(desktop->property("IconName"), "installed-symbolic");
}

TEST_F(StatusNotifierTrayTest, ReportsThePositionOfTheClick) {
  makeShownTray();
  desktop->callItem("Activate", {1200, 10});
  desktop->callItem("Activate", {0, 0}); // from a host that does not know the position
  desktop->callItem("SecondaryActivate", {7, 8});
  desktop->callItem("ContextMenu", {30, 40});
  desktop->callItem("Scroll", {1, "vertical"});
  EXPECT_EQ(calls, (Calls{"changed", "clicked at 1200, 10", "clicked somewhere", "clicked at 7, 8",
                          "menu at 30, 40"}));
}

TEST_F(StatusNotifierTrayTest, TakesNoActivationTokenWithoutWayland) {
  makeShownTray();
  EXPECT_EQ(desktop->callItem("ProvideXdgActivationToken", {"token-1"}).type(),
            QDBusMessage::ReplyMessage);
  EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST_F(StatusNotifierTrayTest, FollowsATrayThatTakesThePlaceOfAnother) {
  makeShownTray();
  const SessionTray next(true, SessionTray::Entrance::replacing);
  EXPECT_TRUE(runEventsUntil([&next] { return next.items().size() == 1; }));
  EXPECT_TRUE(becomesAvailable(true));
}

TEST_F(StatusNotifierTrayTest, RunsTheActionChosenInItsMenu) {
  makeShownTray();
  const QVariant data = QVariant::fromValue(QDBusVariant(QString()));
  desktop->callMenu("Event", {1, "clicked", data, 0U});
  desktop->callMenu("Event", {2, "clicked", data, 0U});
  desktop->callMenu("Event", {2, "hovered", data, 0U});
  desktop->callMenu("Event", {3, "clicked", data, 0U});
  EXPECT_EQ(calls, (Calls{"changed", "open", "quit"}));
}

TEST_F(StatusNotifierTrayTest, LaysOutItsMenuOverTheBus) {
  makeShownTray();
  const QDBusMessage answer = desktop->callMenu("GetLayout", {0, -1, QStringList()});
  ASSERT_EQ(answer.arguments().size(), 2) << answer.errorMessage().toStdString();
  EXPECT_EQ(answer.signature(), "u(ia{sv}av)");
  const auto layout = qdbus_cast<TrayMenuLayout>(answer.arguments().at(1));
  ASSERT_EQ(layout.children.size(), 2);
  const auto first = qdbus_cast<TrayMenuLayout>(layout.children.at(0).variant());
  EXPECT_EQ(first.id, 1);
  EXPECT_EQ(first.properties.value("label"), "Open__it");
}

TEST_F(StatusNotifierTrayTest, AnnouncesARedrawnIcon) {
  makeShownTray();
  tray->redraw();
  EXPECT_EQ(qdbus_cast<TrayPixmaps>(desktop->property("IconPixmap")).size(), 1);
}

TEST_F(StatusNotifierTrayTest, LeavesTheBusWhenDestroyed) {
  makeShownTray();
  tray.reset();
  EXPECT_EQ(desktop->callItem("Activate", {1, 1}).type(), QDBusMessage::ErrorMessage);
}

} // namespace
} // namespace tamberline
