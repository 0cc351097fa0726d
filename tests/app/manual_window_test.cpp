#include "app/manual_window.h"
#include "app/pdf_kit_view.h"
#include "support/event_loop.h"
#include "support/language_scope.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMetaObject>
#include <QPdfDocument>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace tamberline {
namespace {

class ManualWindowTest : public testing::Test {
protected:
  static QWidgetList windows() { return QApplication::topLevelWidgets(); }
  /// Windows are destroyed by the event loop.
  static bool isWindowGone() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return windows().isEmpty();
  }

  /// Sends a key to the focused item of the only window.
  static void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* window = windows().constFirst();
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(window->findChild<QPdfView*>(), &event);
  }

  std::unique_ptr<ManualWindow> manual = std::make_unique<ManualWindow>(MANUALS_FOLDER);
};

TEST_F(ManualWindowTest, ShowsTheManual) {
  const LanguageScope german(AppLanguage::de);
  manual->show();
  ASSERT_EQ(windows().size(), 1);
  const QWidget* window = windows().constFirst();
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(runEventsUntil([&] { return window->isActiveWindow(); }));
  EXPECT_EQ(window->windowTitle().toStdString(), "Tamberline-Anleitung");
  EXPECT_EQ(window->accessibleName().toStdString(), "Tamberline-Anleitung");
  EXPECT_TRUE(window->windowFlags().testFlag(Qt::Window));
  const auto* view = window->findChild<QPdfView*>();
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view->size(), window->size());
  EXPECT_EQ(view->zoomMode(), QPdfView::ZoomMode::FitInView);
  EXPECT_EQ(view->pageMode(), QPdfView::PageMode::MultiPage);
  EXPECT_EQ(view->document()->pageCount(), 1);
  EXPECT_EQ(view->accessibleName().toStdString(), "Tamberline-Anleitung");
}

TEST_F(ManualWindowTest, FitsIntoTheScreen) {
  manual->show();
  const QWidget* window = windows().constFirst();
  const QRect expected = manualWindowGeometry(window->screen()->availableGeometry());
  EXPECT_EQ(window->frameGeometry().topLeft(), expected.topLeft());
  EXPECT_EQ(window->size(), expected.size());
  EXPECT_TRUE(window->screen()->availableGeometry().contains(window->frameGeometry()));
}

TEST_F(ManualWindowTest, ShowsNoWindowWithoutAManualAndSaysWhy) {
  testing::internal::CaptureStderr();
  ManualWindow("/dev/null").show();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "tamberline: there is no manual beside the program\n");
  EXPECT_TRUE(windows().isEmpty());
}

TEST_F(ManualWindowTest, BringsTheOpenWindowToTheFront) {
  manual->show();
  QWidget* window = windows().constFirst();
  window->showMinimized();
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(runEventsUntil([&] { return other.isActiveWindow(); }));
  manual->show();
  EXPECT_EQ(windows().count(window), 1);
  EXPECT_EQ(windows().size(), 2);
  EXPECT_FALSE(window->isMinimized());
  EXPECT_TRUE(runEventsUntil([&] { return window->isActiveWindow(); }));
}

TEST_F(ManualWindowTest, KeepsALargeWindowLarge) {
  manual->show();
  QWidget* window = windows().constFirst();
  window->showMaximized();
  manual->show();
  EXPECT_TRUE(window->isMaximized());
}

TEST_F(ManualWindowTest, IsDestroyedWhenClosedAndCanBeReopened) {
  manual->show();
  windows().constFirst()->close();
  EXPECT_TRUE(isWindowGone());
  manual->show();
  EXPECT_EQ(windows().size(), 1);
  EXPECT_TRUE(windows().constFirst()->isVisible());
}

TEST_F(ManualWindowTest, CanBeReopenedImmediatelyAfterClosing) {
  manual->show();
  windows().constFirst()->close();
  manual->show();
  EXPECT_FALSE(isWindowGone());
  EXPECT_EQ(windows().size(), 1);
  EXPECT_TRUE(windows().constFirst()->isVisible());
}

TEST_F(ManualWindowTest, ClosesWithTheKeyboard) {
  struct Row {
    int key;
    Qt::KeyboardModifiers modifiers;
  };
  for (const Row& row :
       {Row{Qt::Key_Escape, Qt::NoModifier}, Row{Qt::Key_W, Qt::ControlModifier}}) {
    manual->show();
    press(Qt::Key_W);
    EXPECT_TRUE(windows().constFirst()->isVisible());
    press(row.key, row.modifiers);
    EXPECT_TRUE(isWindowGone()) << row.key;
  }
}

TEST_F(ManualWindowTest, IsDestroyedWithItsOwner) {
  manual->show();
  manual.reset();
  EXPECT_TRUE(windows().isEmpty());
}

TEST_F(ManualWindowTest, DoesNotEndTheProgramWhenItCloses) {
  constexpr int endedByTheTest = 7;
  manual->show();
  QWidget* window = windows().constFirst();
  QMetaObject::invokeMethod(
      window, [window] { window->close(); }, Qt::QueuedConnection);
  QObject::connect(window, &QObject::destroyed, qApp, [] {
    QMetaObject::invokeMethod(
        qApp, [] { QApplication::exit(endedByTheTest); }, Qt::QueuedConnection);
  });
  EXPECT_EQ(QApplication::exec(), endedByTheTest);
}

TEST(ManualWindowGeometry, IsInTheMiddleOfTheScreen) {
  EXPECT_EQ(manualWindowGeometry({0, 40, 1920, 1040}), QRect(580, 80, 760, 920));
  EXPECT_EQ(manualWindowGeometry({-1280, 0, 1280, 1024}), QRect(-1020, 32, 760, 920));
}

TEST(ManualWindowGeometry, LeavesRoomForItsTitleBarOnTheScreen) {
  EXPECT_EQ(manualWindowGeometry({0, 0, 1440, 900}), QRect(340, 0, 760, 860));
  EXPECT_EQ(manualWindowGeometry({0, 30, 1366, 738}), QRect(303, 30, 760, 698));
  EXPECT_EQ(manualWindowGeometry({0, 0, 640, 480}), QRect(0, 0, 640, 440));
}

} // namespace
} // namespace tamberline
