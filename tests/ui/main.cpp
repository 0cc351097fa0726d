#include "app/look.h"

#include <QAccessible>
#include <QApplication>
#include <QQuickWindow>
#include <gtest/gtest.h>

/// Windows on the offscreen platform, with software rendering and our own font and colours, so that
/// they look the same on every machine. Accessibility is active.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  const QApplication application(argc, argv);
  QApplication::setFont(tamberline::ownFont());
  QApplication::setPalette(tamberline::lightPalette());
  QAccessible::setActive(true);
  return RUN_ALL_TESTS();
}
