#pragma once

#include "answers/answer_list.h"
#include "answers/usb_links.h"
#include "model/volume_states.h"
#include "tree/tree_node.h"

#include <map>
#include <optional>
#include <string>

namespace tamberline {

using SpeedTests = std::map<std::string, BenchmarkPhase>; // by mount point

/// What a link carries, in decimal megabytes per second.
struct LinkPayload {
  /// What is left for data before any protocol; no device can exceed it.
  double maxMBps = 0;
  /// What a fast drive reaches; absent if that is unknown.
  std::optional<double> usualMBps = {};
};

/// Absent if the speed is unknown.
std::optional<LinkPayload> payloadOf(const USBDevice& device, double gbps);

/// Whether a test showed that the drive uses less than half of what its slowest link carries, so a
/// faster link would not help it.
bool isProvenSlow(const USBDevice& drive, const USBLink& slowest, const SpeedTests& tests);

/// What a test of the drive's volumes shows about `node`, the drive's node.
void findSpeedTestAnswers(const TreeNode& node, const USBDevice& drive, const USBLink& slowest,
                          const SpeedTests& tests, AnswerList& answers);

} // namespace tamberline
