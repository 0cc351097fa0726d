#pragma once

#include "answers/answer.h"
#include "model/charging_state.h"
#include "model/power_records.h"
#include "model/volume_states.h"
#include "tree/tree_node.h"

#include <map>
#include <span>
#include <string>
#include <vector>

namespace tamberline {

/// The state of a scan from which answers are found. Everything must outlive the call only.
struct AnswerInputs {
  /// With stable identifiers.
  std::span<const TreeNode> portTree = {};
  std::span<const HPMPort> hpmPorts = {};
  /// Null if nothing is known.
  const ChargingState* charging = nullptr;
  /// By mount point.
  std::map<std::string, BenchmarkPhase> benchmarks = {};
};

/// Those that need attention first, then the notes, each in tree order. The time grows with the
/// number of nodes, and for devices behind hubs with the number of those hubs.
std::vector<Answer> findAnswers(const AnswerInputs& inputs);

} // namespace tamberline
