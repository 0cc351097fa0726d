#pragma once

#include <string>
#include <vector>

namespace tamberline {

/// Controls the stand-ins for the Mac's symbols and drawing, and records the calls. A symbol is a
/// white rectangle here. One for the whole process; each test starts with a fresh one.
class FakeDrawing {
public:
  static FakeDrawing& get();
  static void reset();

  // Set by the test.
  std::string knownSymbol = "cable.connector";
  double symbolWidth = 4;
  double symbolHeight = 8;
  bool givesContext = true;

  /// One line per call: "symbol cable.connector", "fill 0 0 8 8".
  std::vector<std::string> calls;
  int heldReferences = 0;      // of Core Foundation objects
  int openPools = 0;           // autorelease pools that are not drained
  int savedGraphicsStates = 0; // and not restored
};

} // namespace tamberline
