#include <QApplication>
#include <gtest/gtest.h>

// Called by the leak sanitizer if the tests are built with it. These leaks are not ours, and their
// stacks have no frame of ours and no symbol: a PDF view of Qt 6.4 leaks the object of its thread
// and a scroll gesture, a PDF document that fails to open leaks the data that it has read, and the
// PDF library leaks pages whose text was requested. Their callers are only visible if the whole
// stack is unwound.
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
  qunsetenv("QT_QPA_PLATFORMTHEME"); // a desktop would set the font and colours
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
