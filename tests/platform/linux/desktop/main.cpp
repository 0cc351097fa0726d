#include "platform/private_bus.h"

#include <QApplication>
#include <gtest/gtest.h>

/// The tests bring their own session bus and tray; they need no screen.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qunsetenv("QT_QPA_PLATFORMTHEME"); // a desktop would look for a tray itself
  tamberline::PrivateBus::becomeSessionBus();
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
