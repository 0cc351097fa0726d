#pragma once

namespace tamberline {

// The English names of a volume's buttons.
inline constexpr const char* testName =
    "Measure this volume's read & write speed (writes a temp file, then deletes it)";
inline constexpr const char* retestName = "Run the test again";
inline constexpr const char* ejectName = "Eject this drive";

} // namespace tamberline
