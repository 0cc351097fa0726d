#include "platform/private_bus.h"

#include <QApplication>
#include <gtest/gtest.h>

/// The tests bring a session bus and a tray of their own; a screen they do not need.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qunsetenv("QT_QPA_PLATFORMTHEME"); // a desktop would look for a tray itself
  tamberline::PrivateBus::becomeSessionBus();
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
