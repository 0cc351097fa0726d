#include <QApplication>
#include <gtest/gtest.h>

/// Icons and menus need an application object; on the offscreen platform they need no screen.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qunsetenv("QT_QPA_PLATFORMTHEME"); // a desktop would set the font and colours
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
