#pragma once

#include "model/charging_state.h"
#include "model/power_records.h"

#include <optional>
#include <string>
#include <vector>

namespace tamberline {

/// One line about a port. The title may be empty.
struct DetailLine {
  std::string title = {};
  std::string text = {};

  /// Both, such as "Cable: 3 A, USB 2".
  std::string label() const;

  friend bool operator==(const DetailLine&, const DetailLine&) = default;
};

/// What a port controller and firmware know about a port beyond what its badges show: what the
/// adapter offers and the computer takes, what the cable can carry, how video uses the port, and
/// failures. Only what is known has a line.
std::vector<DetailLine> portDetailLines(const HPMPort& port,
                                        const std::optional<ChargingState>& charging);

/// Such as "20 V, 3.25 A" or "3.3–21 V, 5 A (PPS)".
std::string offerText(const PowerOffer& offer);

} // namespace tamberline
