// Called by the leak sanitizer if the tests are built with it. The Objective-C runtime that comes
// with clang never frees its tables of classes and selectors.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libobjc.so\n";
}
