// Decides by brute force what limits a USB device: it tries every way in which the links could
// have come about.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace tamberline {

/// What is known of one link and of the device or hub at its end.
struct SeenLink {
  double gbps = 0;
  /// What the device can do at least, and at most.
  std::optional<double> provenGbps = {};
  std::optional<double> limitGbps = {};
};

/// A device, hub or cable that may limit: those of link 0 are the ones next to the computer.
struct Suspect {
  std::size_t link = 0;
  bool isCable = false;

  auto operator<=>(const Suspect&) const = default;
};

struct Verdict {
  /// Whether the device could do more than it does, in all cases that fit what is seen.
  bool canDoMore = false;
  /// What makes the device faster, if only this one thing becomes faster, in at least one case.
  std::set<Suspect> suspects = {};
  /// What is as slow as its own link, in at least one case.
  std::set<Suspect> holders = {};
};

/// At most four links, of which the last is that of the device.
Verdict judge(double portGbps, const std::vector<SeenLink>& path);

} // namespace tamberline
