#pragma once

#include <string>
#include <vector>

namespace tamberline {

/// What the stand-ins for the Mac's calls do, and what was asked of them. One for the whole
/// process; each test begins with a fresh one.
class FakeMac {
public:
  static FakeMac& get();
  static void reset();

  // What the test decides.
  bool givesNotificationPort = true;
  bool givesPowerSource = true;
  std::vector<std::string> refusedClasses;
  /// Objects that each new iterator holds.
  int attachedObjects = 2;
  double timeRemaining = -2;
  bool givesLanguages = true;
  std::vector<std::string> languages;

  /// Something appears or goes that the nth registration, counted from 0, watches.
  void notifyRegistration(std::size_t index, int objectCount);
  void notifyPowerSource() const;

  /// One line a call: "watch IOServiceMatched IOUSBDevice", "take", "release object".
  std::vector<std::string> calls;
  /// Objects and iterators that were given and not released; negative after a release too many.
  int heldObjects = 0;
  int heldReferences = 0; // of Core Foundation
};

} // namespace tamberline
