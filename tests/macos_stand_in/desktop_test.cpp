#include "platform/desktop.h"
#include "platform/macos/mac_tray.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(MacDesktop, HasNoRuntimeFolder) {
  EXPECT_TRUE(systemRuntimeFolder().isEmpty());
}

TEST(MacDesktop, LetsProgramsPositionTheirWindows) {
  EXPECT_EQ(makeWindowPlaces()->decider(), WindowPlaces::Decider::program);
}

TEST(MacDesktop, HasAnIconInTheMenuBar) {
  const std::unique_ptr<Tray> tray = makeDesktopTray(makeWindowPlaces());
  EXPECT_NE(dynamic_cast<MacTray*>(tray.get()), nullptr);
}

TEST(MacDesktop, HasNoSettingOfAnimations) {
  EXPECT_EQ(makeAnimationSetting(), nullptr);
}

TEST(MacDesktop, KeepsNoCompiledShadersInAFile) {
  QCoreApplication::setAttribute(Qt::AA_DisableShaderDiskCache, false);
  chooseGraphics();
  EXPECT_TRUE(QCoreApplication::testAttribute(Qt::AA_DisableShaderDiskCache));
}

TEST(MacDesktop, LeavesKeyboardFocusWhereItIsWhenItStarts) {
  constexpr const char* variable = "QT_MAC_DISABLE_FOREGROUND_APPLICATION_TRANSFORM";
  qunsetenv(variable);
  startWithoutFocus();
  EXPECT_FALSE(qEnvironmentVariableIsEmpty(variable));
  qunsetenv(variable);
}

TEST(MacDesktop, StartsWithTheIconOnly) {
  EXPECT_FALSE(opensPanelOnStart());
  EXPECT_FALSE(takeStartInBackground()); // so that a second start raises the first one's panel
}

} // namespace
} // namespace tamberline
