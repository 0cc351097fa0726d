#pragma once

#include "platform/macos/native_panel.h"

#include <memory>
#include <string>
#include <vector>

namespace tamberline {

/// Controls the stand-ins for the Mac's windows, application and events, and records the calls. One
/// for the whole process; each test starts with a fresh one.
class FakeAppKit {
public:
  static FakeAppKit& get();
  static void reset();

  // Set by the test.
  bool isActive = false;
  bool isHidden = false;
  bool givesMonitor = true;

  /// The views of a panel and of an ordinary window.
  NativeView viewInPanel();
  NativeView viewInWindow();

  /// The user presses a mouse button in another application. False if nothing watches that.
  bool clickElsewhere() const;
  /// The user opens the application again. False if nothing handles that.
  bool reopen() const;

  /// One line per call: "level 25", "hide".
  std::vector<std::string> calls;
  int heldReferences = 0; // retained or allocated by the code under test, and not released
};

} // namespace tamberline
