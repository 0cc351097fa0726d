#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tamberline {

/// Controls the stand-ins for the Mac's calls, and records the calls. One for the whole process;
/// each test starts with a fresh one.
class FakeMac {
public:
  static FakeMac& get();
  static void reset();

  // Set by the test.
  bool givesNotificationPort = true;
  bool givesPowerSource = true;
  std::vector<std::string> refusedClasses;
  /// The number of objects in each new iterator.
  int attachedObjects = 2;
  double timeRemaining = -2;
  bool givesLanguages = true;
  std::vector<std::string> languages;

  /// An object that the nth registration, counted from 0, watches appears or disappears.
  void notifyRegistration(std::size_t index, int objectCount);
  void notifyPowerSource() const;

  /// The user presses a mouse button in another application, or opens the program again. Null while
  /// nothing watches that.
  std::function<void()> clickElsewhere;
  std::function<void()> reopen;

  /// One line per call: "watch IOServiceMatched IOUSBDevice", "take", "release object".
  std::vector<std::string> calls;
  /// The number of unreleased objects and iterators; negative after too many releases.
  int heldObjects = 0;
  int heldReferences = 0; // of Core Foundation objects
};

} // namespace tamberline
