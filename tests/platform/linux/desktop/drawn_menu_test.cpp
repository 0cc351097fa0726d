#include "platform/linux/desktop/drawn_menu.h"
#include "support/fake_desktop.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tamberline {
namespace {

MenuEntries entriesThatTell(std::vector<std::string>& calls) {
  return {{"Open", [&calls] { calls.emplace_back("open"); }},
          {"Quit", [&calls] { calls.emplace_back("quit"); }}};
}

TEST(DrawnMenu, OpensWhereTheTrayWasClickedAndClosesOnTheNextClick) {
  std::vector<std::string> calls;
  FreeWindowPlaces places;
  DrawnMenu menu(places, entriesThatTell(calls));
  menu.open(QPoint(50, 60));
  EXPECT_TRUE(menu.menu().isVisible());
  EXPECT_EQ(menu.menu().pos(), QPoint(50, 60));
  menu.open(QPoint(50, 60));
  EXPECT_FALSE(menu.menu().isVisible());
}

TEST(DrawnMenu, RunsTheChosenAction) {
  std::vector<std::string> calls;
  FreeWindowPlaces places;
  DrawnMenu menu(places, entriesThatTell(calls));
  for (QAction* action : menu.menu().actions()) {
    action->trigger();
  }
  EXPECT_EQ(calls, (std::vector<std::string>{"open", "quit"}));
}

TEST(DrawnMenu, IsHeldBesideTheTrayUntilAClickOutside) {
  std::vector<std::string> calls;
  FakeWindowPlaces places(WindowPlaces::Decider::corner);
  DrawnMenu menu(places, entriesThatTell(calls));
  menu.open(QPoint(790, 790));
  EXPECT_EQ(places.corners, std::vector{Qt::BottomRightCorner});
  EXPECT_EQ(places.holds, 1);
  const auto clickOutside = places.events.clickedOutside;
  clickOutside();
  EXPECT_FALSE(menu.menu().isVisible());
  EXPECT_EQ(places.holds, 0);
}

} // namespace
} // namespace tamberline
