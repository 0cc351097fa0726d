#include <QApplication>
#include <gtest/gtest.h>

// What the leak sanitizer asks when the tests are built with it. A PDF view of Qt 6.4 leaves the
// object of its thread and a scroll gesture behind, a PDF document that does not open what it has
// read, and the library for PDF pages whose text was asked for, without a frame of ours or a name;
// their callers are only seen when the whole stack is unwound.
extern "C" const char* __asan_default_options() {
  return "fast_unwind_on_malloc=0";
}
extern "C" const char* __lsan_default_suppressions() {
  return "leak:QPdf\n"
         "leak:libQt6Pdf.so\n"
         "leak:QScroller::grabGesture\n";
}

/// Windows need an application object; on the offscreen platform they need no screen.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qunsetenv("QT_QPA_PLATFORMTHEME"); // a desktop would choose font and colours
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
