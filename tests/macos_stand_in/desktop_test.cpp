#include "platform/desktop.h"

#include <QCoreApplication>
#include <QDir>
#include <gtest/gtest.h>

namespace tamberline {
namespace {

TEST(MacDesktop, HasTheManualsInTheResourcesOfTheBundle) {
  int argumentCount = 1;
  char program[] = "test";
  char* arguments[] = {program, nullptr};
  const QCoreApplication application(argumentCount, arguments);
  QDir contents(QCoreApplication::applicationDirPath());
  contents.cdUp();
  EXPECT_EQ(bundledManuals(), contents.filePath("Resources"));
}

TEST(MacDesktop, HasNoFolderForTheTracesOfARun) {
  EXPECT_TRUE(systemRuntimeFolder().isEmpty());
}

TEST(MacDesktop, LeavesNoClickToThePanelWhereItsMenuBarKnowsAMenu) {
  EXPECT_TRUE(everyClickOpensTrayMenu());
}

} // namespace
} // namespace tamberline
