#pragma once

#include "views/colors.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tamberline {

/// A thin bar: both fractions lie between 0 and 1.
struct TriBar {
  double usedFraction = 0;
  double cableFraction = 0;

  /// The cable layer is drawn only where it sticks out visibly behind the used one.
  bool showsCableLayer() const;

  friend bool operator==(const TriBar&, const TriBar&) = default;
};

TriBar triBar(double usedFraction, double cableFraction);

/// A negotiated speed against a maximum.
struct SpeedBarRow {
  double usedGbps = 0;
  double portMaxGbps = 0;
  double ratio = 0; // 0 to 1
  Color color = Color::orange;
  std::string speedLabel = {};
  std::string portMaxLabel = {};
  std::string tooltip = {};

  friend bool operator==(const SpeedBarRow&, const SpeedBarRow&) = default;
};

SpeedBarRow speedBarRow(double usedGbps, double portMaxGbps, std::string speedLabel,
                        std::string portMaxLabel);

/// A rated draw against a port's budget. Texts that are not shown are absent.
struct PowerBarRow {
  std::int64_t usedMa = 0;
  std::int64_t allocatedMa = 0;
  std::int64_t portMaxMa = 0;
  std::string used = {};
  std::optional<std::string> allocated = {};
  std::optional<std::string> portMax = {};
  Color color = Color::green; // orange: all but used up; red: beyond it; grey: unknown
  TriBar bar = {};
  std::string tooltip = {};

  friend bool operator==(const PowerBarRow&, const PowerBarRow&) = default;
};

struct PowerBarFacts {
  std::int64_t usedMa = 0;
  std::int64_t allocatedMa = 0;
  std::int64_t portMaxMa = 0;
  std::string_view usedLabel = {};
  bool showPortMax = true;
};

PowerBarRow powerBarRow(const PowerBarFacts& facts);

/// Such as "7.5 W".
std::string wattsText(double watts);

} // namespace tamberline
